// Which people and links a picture or an export is about.

#include "map/backbone.h"
#include "map/groups.h"
#include "tests/map/map_fixture.h"

namespace pelk {
namespace {

std::string textOf(const Graph& graph) {
    std::string text;
    for (const GraphPerson& person : graph.people)
        text += std::to_string(person.contact.id) + ":" +
                std::to_string(static_cast<int>(person.mails)) + " ";
    for (const GraphLink& link : graph.links)
        text += "(" + std::to_string(graph.people[link.from].contact.id) + "-" +
                std::to_string(graph.people[link.to].contact.id) + " " +
                std::to_string(static_cast<int>(link.weight)) + nameOf(link.strength)[0] + ")";
    return text;
}

class GraphTest : public ::testing::Test {
 protected:
    std::unique_ptr<Database> database = databaseWith(
        "<contact id='5'/><contact id='1'/><contact id='2'/><contact id='3'/>"
        "<contact id='4'/><contact id='1'/>",
        relation(1, 2, "100") + relation(2, 3, "30") + relation(3, 4, "10") + relation(1, 3, "10") +
            relation(1, 3, "7") + relation(2, 2, "9") + relation(1, 4, "0") + relation(1, 8, "50"));
};

TEST_F(GraphTest, holdsWhatTheFilterLetsThrough) {
    EXPECT_EQ(textOf(makeGraph(*database, {})),
              "1:110 2:130 3:50 4:10 5:0 (1-2 100s)(1-3 10w)(2-3 30m)(3-4 10w)");
    EXPECT_EQ(textOf(makeGraph(*database, {Strength::Medium, {}, {}})),
              "1:100 2:130 3:30 (1-2 100s)(2-3 30m)");
    EXPECT_EQ(textOf(makeGraph(*database, {Strength::Weak, 3, {}})),
              "1:110 2:130 3:40 (1-2 100s)(1-3 10w)(2-3 30m)");
    EXPECT_EQ(textOf(makeGraph(*database, {Strength::Medium, {}, {1}})), "2:30 3:30 (2-3 30m)");
    EXPECT_EQ(textOf(makeGraph(*database, {Strength::Weak, 99, {}})),
              textOf(makeGraph(*database, {})));
    EXPECT_EQ(textOf(makeGraph(*database, {Strength::Weak, 2, {3}, {4, 3, 3}})),
              "1:110 2:130 3:50 4:10 (1-2 100s)(1-3 10w)(2-3 30m)(3-4 10w)")
        << "3 and 4 always";
}

TEST_F(GraphTest, hasTheContactOfACircleFirst) {
    EXPECT_EQ(textOf(makeCircle(*database, 3, {})),
              "3:50 1:110 2:130 4:10 (3-1 10w)(3-2 30m)(3-4 10w)(1-2 100s)");
    EXPECT_EQ(textOf(makeCircle(*database, 3, {Strength::Weak, 2, {}})),
              "3:40 1:110 2:130 (3-1 10w)(3-2 30m)(1-2 100s)")
        << "of the equal ones 1 and 4";
    EXPECT_EQ(textOf(makeCircle(*database, 4, {Strength::Medium, {}, {}})), "4:0 ");
}

TEST(Backbone, keepsWhatIsMoreThanChanceAndTheStrongestLinkOfEach) {
    // A star of equal links, of which only one stands out, and a triangle of equal links.
    std::vector<GraphLink> links{{0, 1, 50}, {11, 12, 1}, {11, 13, 1}, {12, 13, 1}, {1, 2, 1}};
    for (std::uint32_t other = 2; other <= 10; ++other)
        links.push_back({0, other, 2});
    const Graph backbone = backboneOf(networkOf(14, links), 0.05);
    EXPECT_EQ(backbone.people.size(), 14U);
    std::string kept;
    for (const GraphLink& link : backbone.links)
        kept += std::to_string(link.from) + "-" + std::to_string(link.to) + " ";
    EXPECT_EQ(kept, "0-1 0-2 0-3 0-4 0-5 0-6 0-7 0-8 0-9 0-10 11-12 11-13 ");
    // With 10 links, a share of 40 % has the chance (1 - 0.4)^9, about 1 %.
    EXPECT_EQ(backboneOf(networkOf(14, links), 1).links.size(), links.size());
}

TEST(Groups, areThoseThatAreLinkedMost) {
    const Graph graph = chainOfCliques(5, 6);
    const Groups groups = findGroups(graph);
    for (std::size_t person = 0; person < groups.size(); ++person)
        EXPECT_EQ(groups[person], person / 6) << person;
    // 4 of 154 e-mails are between groups; the outer groups have 61 ends each, the others 62.
    EXPECT_NEAR(modularityOf(graph, groups),
                150 / 154.0 - (2 * 61 * 61 + 3 * 62 * 62) / (308.0 * 308), 1e-12);
    EXPECT_EQ(findGroups(networkOf(4, {{2, 3, 1}})), (Groups{1, 2, 0, 0}))
        << "the largest first, single people on their own";
    EXPECT_TRUE(findGroups({}).empty());
    EXPECT_EQ(modularityOf({}, {}), 0);
}

}  // namespace
}  // namespace pelk
