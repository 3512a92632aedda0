#include "maintenance/contact_merge.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "db/document_check.h"
#include "maintenance/relation_details.h"
#include "tests/support/core_platform.h"

namespace pelk {
namespace {

struct Edge {
    int part1, part2, weight;
};

/// Returns a database with five contacts, p1@x to p5@x, and the given relations.
std::unique_ptr<Database> fiveContacts(const std::vector<Edge>& edges) {
    std::string xml =
        "<pelkDB date='2020-01-01T00:00:00' totalMails='9' totalContacts='5' maxInd='50' "
        "minInd='5'><contacts>";
    for (int id = 1; id <= 5; ++id)
        xml += "<contact id='" + std::to_string(id) + "' name='P" + std::to_string(id) +
               "'><emails><email value='p" + std::to_string(id) + "@x'/></emails></contact>";
    xml += "</contacts><relations total='0'>";
    for (const Edge& edge : edges)
        xml += "<relation part1='" + std::to_string(edge.part1) + "' part2='" +
               std::to_string(edge.part2) + "' weight='" + std::to_string(edge.weight) + "'/>";
    return loadDocument(xml + "</relations></pelkDB>");
}

/// Returns the contacts and the relations in document order, as text.
std::string summary(const Database& database) {
    std::string text;
    database.forEachContact([&text](const Contact& contact) {
        text += std::to_string(contact.id) + contact.name + ' ';
    });
    for (const Relation& relation : database.relations())
        text += "| " + std::to_string(relation.part1) + '-' + std::to_string(relation.part2) + ' ' +
                std::to_string(roundToInteger(relation.weight)) + ' ';
    return text;
}

void fold(Database& database, const std::vector<int>& ids) {
    foldContacts(database, contactsToFold(database, ids), "New");
}

TEST(ContactMerge, movesAddsUpOrDropsRelations) {
    const struct {
        const char* what;
        std::vector<Edge> edges;
        std::vector<int> ids;
        const char* after;
    } cases[] = {
        {"mail between the two is no relation",
         {{1, 2, 7}, {1, 3, 1}},
         {1, 2},
         "1New 3P3 4P4 5P5 | 1-3 1 "},
        {"weights are added", {{1, 3, 3}, {2, 3, 4}}, {1, 2}, "1New 3P3 4P4 5P5 | 1-3 7 "},
        {"the smaller id comes first, the new relation last",
         {{1, 2, 2}, {1, 4, 3}, {4, 5, 4}},
         {3, 2, 5},
         "1P1 3New 4P4 | 1-4 3 | 1-3 2 | 3-4 4 "},
        {"one after the other", {{2, 3, 5}, {3, 4, 1}}, {1, 2, 3}, "1New 4P4 5P5 | 1-4 1 "},
        {"the vanished and the repeated do not count",
         {{2, 3, 5}, {3, 4, 1}},
         {9, 0, 4, 9, 4, 2, 4},
         "1P1 3P3 4New 5P5 | 3-4 6 "},
        {"those with oneself and with nobody are dropped, repeated ones are added up",
         {{2, 2, 5}, {0, 2, 5}, {2, 3, 1}, {2, 3, 2}, {3, 2, 3}},
         {1, 2},
         "1New 3P3 4P4 5P5 | 1-3 6 "},
    };
    for (const auto& example : cases) {
        const std::unique_ptr<Database> database = fiveContacts(example.edges);
        fold(*database, example.ids);
        EXPECT_EQ(summary(*database), example.after) << example.what;
        EXPECT_NO_THROW(requireSoundDocument(database->root()));
        EXPECT_EQ(database->totalContacts(), 5);
    }
}

TEST(ContactMerge, gathersAddressesAndKeepsDuplicates) {
    const std::unique_ptr<Database> database = fiveContacts({});
    database->addContact("", "p3@x");
    fold(*database, {3, 6, 1});
    EXPECT_EQ(database->contact(3)->addresses, (std::vector<std::string>{"p3@x", "p3@x", "p1@x"}));
    EXPECT_EQ(database->contactIdByAddress("p1@x"), 3);
}

TEST(ContactMerge, movesRelationsAlone) {
    const std::unique_ptr<Database> database = fiveContacts({{1, 2, 7}, {2, 2, 5}, {2, 3, 4}});
    moveRelations(*database, 1, 2);
    EXPECT_EQ(summary(*database), "1P1 2P2 3P3 4P4 5P5 | 1-3 4 ");
}

TEST(ContactMerge, changesNothingWhenItIsRefused) {
    const std::unique_ptr<Database> database = fiveContacts({{1, 2, 1}, {1, 3, 1}, {3, 1, 1}});
    const std::string before = database->xml();
    EXPECT_EQ(contactsToFold(*database, {9, 2, 2}).size(), 1U);
    EXPECT_THROW(contactsToFold(*database, {1, 2, 3}), Error);
    EXPECT_EQ(database->xml(), before);
}

TEST(RelationDetails, statesBothWeightsInOneSentence) {
    const std::unique_ptr<Database> database = fiveContacts({{1, 2, 1}, {2, 3, 1}, {3, 4, 12}});
    const std::optional<RelationDetails> one = relationDetails(*database, 2, 1);
    ASSERT_TRUE(one);
    EXPECT_EQ(one->name1 + one->name2, "P2P1");
    EXPECT_EQ(
        one->sentence(),
        "1 email has been exchanged between these contacts, while in the most strong relation "
        "12 emails have been exchanged.");
    EXPECT_EQ(relationDetails(*database, 3, 4)->sentence(),
              "12 emails have been exchanged between these contacts, while in the most strong "
              "relation 12 emails have been exchanged.");
    EXPECT_FALSE(relationDetails(*database, 1, 3));
}

}  // namespace
}  // namespace pelk
