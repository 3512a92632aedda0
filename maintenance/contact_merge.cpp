#include "maintenance/contact_merge.h"

#include <cstddef>
#include <unordered_set>

namespace pelk {
namespace {

/// Returns the ids that have contacts, each once, in the order given.
std::vector<int> existingContacts(const Database& database, const std::vector<int>& ids) {
    std::vector<int> existing;
    std::unordered_set<int> seen;
    for (const int id : ids)
        if (id > 0 && database.contact(id) && seen.insert(id).second)
            existing.push_back(id);
    return existing;
}

/// Refuses a document with several relations of one pair: it is unclear how to add them up.
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
    // An address of both contacts is then listed twice. This is on purpose: each contact keeps
    // every address it was found under.
    database.moveAddresses(other, survivor);
    moveRelations(database, survivor, other);
    database.removeContacts({other});
}

void moveRelations(Database& database, int survivor, int other) {
    for (const Relation& relation : database.relationsOf(other)) {
        const int partner = relation.partnerOf(other);
        database.removeRelation(other, partner);
        // The relation between the two is dropped with its weight, on purpose: mail between two
        // addresses of one person is no relation. Relations with oneself or an invalid id go, too.
        if (partner != survivor && partner != other && partner != 0)
            database.addRelationWeight(survivor, partner, roundToInteger(relation.weight));
    }
}

}  // namespace pelk
