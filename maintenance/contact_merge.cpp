#include "maintenance/contact_merge.h"

#include <cstddef>
#include <unordered_set>

namespace pelk {
namespace {

/// The ids of contacts, each once, in the order given.
std::vector<int> existingContacts(const Database& database, const std::vector<int>& ids) {
    std::vector<int> existing;
    std::unordered_set<int> seen;
    for (const int id : ids)
        if (id > 0 && database.contact(id) && seen.insert(id).second)
            existing.push_back(id);
    return existing;
}

/// A pair has one relation at most; where that does not hold, nobody knows what the several mean.
void refuseRepeatedRelations(const Database& database, const std::vector<int>& ids) {
    std::unordered_set<int> unrelated(ids.begin() + 1, ids.end());
    const std::unordered_set<int> others = unrelated;
    for (const Relation& relation : database.relationsOf(ids.front())) {
        const int partner = relation.partnerOf(ids.front());
        if (others.contains(partner) && unrelated.erase(partner) == 0)
            throw Error("Unreachable code, addrelationweight");
    }
}

}  // namespace

std::vector<int> contactsToFold(const Database& database, const std::vector<int>& ids) {
    std::vector<int> contacts = existingContacts(database, ids);
    if (!contacts.empty())
        refuseRepeatedRelations(database, contacts);
    return contacts;
}

void foldContacts(Database& database, const std::vector<int>& contacts, const std::string& name) {
    for (std::size_t other = 1; other < contacts.size(); ++other)
        mergeContact(database, contacts.front(), contacts[other], name);
}

void mergeContact(Database& database, int survivor, int other, const std::string& name) {
    database.renameContact(survivor, name);
    // An address that both have stands twice then. That is on purpose: every address that a
    // contact was found under stays with it as it was met.
    database.moveAddresses(other, survivor);
    moveRelations(database, survivor, other);
    database.removeContacts({other});
}

void moveRelations(Database& database, int survivor, int other) {
    for (const Relation& relation : database.relationsOf(other)) {
        const int partner = relation.partnerOf(other);
        database.removeRelation(other, partner);
        // The relation of the two is discarded with its weight, on purpose: mail between two
        // addresses of one person is no relation. Nor is one with oneself, or with nobody.
        if (partner != survivor && partner != other && partner != 0)
            database.addRelationWeight(survivor, partner, roundToInteger(relation.weight));
    }
}

}  // namespace pelk
