// Random edits of random documents: each index stays consistent with its query, and a sound
// document stays sound.

#include <random>

#include "db/document_check.h"
#include "tests/db/documents.h"
#include "tests/db/index_fault.h"

namespace pelk {
namespace {

constexpr int kIds = 9;
using Pair = std::pair<int, int>;

std::string address(int number) {
    return "p" + std::to_string(number) + "@x";
}

/// Also looks up one id and one address that cannot exist.
std::string faultOfIndexes(const Database& database) {
    return indexFault(database, static_cast<int>(database.totalContacts()) + 1);
}

class RandomEdits {
 public:
    explicit RandomEdits(unsigned seed) : random_(seed) {}

    int number(std::size_t most) { return static_cast<int>(random_() % (most + 1)); }

    /// Returns a document in which ids, addresses and pairs repeat, are out of order or are
    /// invalid.
    std::string brokenDocument() {
        const auto id = [this] {
            const std::vector<std::string> odd{"", "x", "007", "+3", "40000"};
            return number(7) == 0 ? odd[number(4)] : std::to_string(smallId());
        };
        std::string contacts;
        std::string relations;
        for (int count = number(8); count > 0; --count)
            contacts += contactXml(id(), address(smallId()));
        for (int count = number(20); count > 0; --count)
            relations += relationXml(id(), id(), std::to_string(number(20)));
        return documentOf(contacts, relations);
    }

    /// Edits the database once. Keeps to the program's own kinds of edits if `sound`.
    void edit(Database& database, bool sound) {
        const int a = sound ? anyContact(database) : smallId();
        const int b = sound ? anyContact(database) : smallId();
        const std::string someAddress = address(number(kIds));
        switch (number(11)) {
            case 0:
            case 1:
                if (!sound || database.contactIdByAddress(someAddress) == 0)
                    database.addContact("", someAddress);
                break;
            case 2:
                database.moveAddresses(a, b);
                break;
            case 3:
                remove(database, {a});
                break;
            case 4:
                remove(database, {a, number(3 * kIds), b});
                break;
            case 5:
                database.removeRelation(b, a);
                weights.erase(std::minmax(a, b));
                break;
            case 6:
                database.setThresholds(50 + number(50), number(50));
                ASSERT_EQ(database.renameContact(a, "Ann"), database.contact(a).has_value());
                break;
            default:
                if (a == b || a == 0 || b == 0)
                    break;
                database.addMailBetween(a, b);
                database.addRelationWeight(b, a, 4);
                weights[std::minmax(a, b)] += 5;
        }
    }

    /// The expected weight of each relation, for a sound document that began without relations.
    std::map<Pair, double> weights;

 private:
    /// Prefers small ids, so that pairs repeat.
    int smallId() { return number(number(kIds)); }

    int anyContact(Database& database) {
        std::vector<int> ids;
        database.forEachContact([&ids](const Contact& contact) { ids.push_back(contact.id); });
        return ids.empty() ? database.addContact("", address(0)) : ids[number(ids.size() - 1)];
    }

    void remove(Database& database, const std::vector<int>& ids) {
        database.removeContacts(ids);
        for (const int id : ids)
            std::erase_if(weights, [id](const auto& entry) {
                return entry.first.first == id || entry.first.second == id;
            });
    }

    std::mt19937 random_;
};

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
        std::map<Pair, double> weights;
        for (const Relation& relation : database.relations())
            weights[{relation.part1, relation.part2}] = relation.weight;
        ASSERT_EQ(weights, edits.weights);
        ASSERT_EQ(load(database.xml()).xml(), database.xml());
        ASSERT_EQ(faultOfIndexes(database), "");
    }
}

}  // namespace
}  // namespace pelk
