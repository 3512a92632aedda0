// Random edits of random documents: each index stays consistent with its query, and a sound
// document stays sound.

#include "db/document_check.h"
#include "tests/db/index_fault.h"
#include "tests/db/random_edits.h"

namespace pelk {
namespace {

/// Also looks up one id and one address that cannot exist.
std::string faultOfIndexes(const Database& database) {
    return indexFault(database, static_cast<int>(database.totalContacts()) + 1);
}

TEST(Edits, keepEachIndexConsistentWithItsQuery) {
    RandomEdits edits(2026);
    for (int round = 0; round < 150; ++round) {
        Database database = load(edits.brokenDocument());
        for (int count = 0; count < 20; ++count) {
            if (count % 4 == 0) {
                ASSERT_EQ(faultOfIndexes(database), "");
            }
            const std::string before = database.xml();
            const std::uint64_t revision = database.revision();
            edits.edit(database, false);
            ASSERT_TRUE(database.revision() > revision || database.xml() == before);
        }
        ASSERT_EQ(faultOfIndexes(database), "");
    }
}

TEST(Edits, keepASoundDocumentSound) {
    RandomEdits edits(2027);
    for (int round = 0; round < 50; ++round) {
        Database database = load(documentOf("", ""));
        for (int owner = 0; owner <= kIds; ++owner)
            database.addContact("", address(owner));
        edits.weights.clear();
        for (int count = 0; count < 60; ++count)
            edits.edit(database, true);
        ASSERT_NO_THROW(requireSoundDocument(database.root())) << database.xml();
        std::map<std::pair<int, int>, double> weights;
        for (const Relation& relation : database.relations())
            weights[{relation.part1, relation.part2}] = relation.weight;
        ASSERT_EQ(weights, edits.weights);
        ASSERT_EQ(load(database.xml()).xml(), database.xml());
        ASSERT_EQ(faultOfIndexes(database), "");
    }
}

}  // namespace
}  // namespace pelk
