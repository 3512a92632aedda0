#pragma once
// Databases and networks for the tests of pictures.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "map/graph.h"
#include "tests/support/adapters.h"

namespace pelk {

inline std::unique_ptr<Database> databaseWith(const std::string& contacts,
                                              const std::string& relations) {
    std::unique_ptr<XmlDocument> document = makeXmlDocument();
    EXPECT_TRUE(document->loadXml("<pelkDB totalContacts='9' maxInd='60' minInd='20'><contacts>" +
                                  contacts + "</contacts><relations>" + relations +
                                  "</relations></pelkDB>"))
        << document->parseError();
    return std::make_unique<Database>(std::move(document));
}

inline std::string relation(int part1, int part2, const std::string& weight) {
    return "<relation part1='" + std::to_string(part1) + "' part2='" + std::to_string(part2) +
           "' weight='" + weight + "'/>";
}

/// Returns a network of so many people with the links, whose ends may come in any order.
inline Graph networkOf(std::size_t people, const std::vector<GraphLink>& links) {
    Graph all{std::vector<GraphPerson>(people), links};
    std::vector<std::uint32_t> numbers;
    for (std::uint32_t number = 0; number < people; ++number) {
        all.people[number].contact.id = static_cast<int>(number) + 1;
        numbers.push_back(number);
    }
    return partOf(all, numbers);
}

/// Returns groups of `size` people who all know each other, in a chain of single links.
inline Graph chainOfCliques(std::uint32_t cliques, std::uint32_t size) {
    std::vector<GraphLink> links;
    for (std::uint32_t person = 0; person < cliques * size; ++person) {
        for (std::uint32_t other = person + 1; other < cliques * size; ++other)
            if (person / size == other / size)
                links.push_back({person, other, 2});
        if (person % size == 0 && person > 0)
            links.push_back({person - size, person, 1});
    }
    return networkOf(std::size_t{cliques} * size, links);
}

}  // namespace pelk
