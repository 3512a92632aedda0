#pragma once
// Databases for searches, of contacts without addresses.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "db/database.h"
#include "tests/support/adapters.h"

namespace pelk {

struct RelationText {
    int part1 = 0;
    int part2 = 0;
    std::string weight;
};

/// A database with those contacts and relations, which counts its contacts as told.
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

}  // namespace pelk
