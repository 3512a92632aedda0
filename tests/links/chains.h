#pragma once
// Builds databases to search and prints the chains found.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "links/link_search.h"
#include "tests/support/adapters.h"

namespace pelk {

struct RelationText {
    int part1 = 0;
    int part2 = 0;
    std::string weight;
};

/// `totalContacts` is written as given, even when it does not match the contacts.
inline std::unique_ptr<Database> databaseOf(int totalContacts,
                                            const std::vector<RelationText>& relations,
                                            const std::string& contacts = "") {
    std::string xml = "<pelkDB totalContacts='" + std::to_string(totalContacts) + "'><contacts>" +
                      contacts + "</contacts><relations>";
    for (const auto& [part1, part2, weight] : relations)
        xml += "<relation part1='" + std::to_string(part1) + "' part2='" + std::to_string(part2) +
               "' weight='" + weight + "'/>";
    std::unique_ptr<XmlDocument> document = makeXmlDocument();
    EXPECT_TRUE(document->loadXml(xml + "</relations></pelkDB>")) << document->parseError();
    return std::make_unique<Database>(std::move(document));
}

inline std::string textOf(const std::optional<LinkChain>& chain) {
    std::string text = chain ? std::to_string(chain->cost) + ":" : "none";
    for (const int id : chain ? chain->ids : std::vector<int>())
        text += " " + std::to_string(id);
    return text;
}

}  // namespace pelk
