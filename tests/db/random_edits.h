#pragma once
// Random documents, and random edits of them.

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "tests/db/documents.h"

namespace pelk {

inline constexpr int kIds = 9;

inline std::string address(int number) {
    return "p" + std::to_string(number) + "@x";
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
    std::map<std::pair<int, int>, double> weights;

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

}  // namespace pelk
