#pragma once
// Holds the look-ups of a database to the queries that they stand for.

#include <optional>
#include <string>
#include <vector>

#include "db/database.h"
#include "db/queries.h"

namespace pelk {

inline std::string textOf(const Relation& relation) {
    return std::to_string(relation.part1) + "-" + std::to_string(relation.part2) + ":" +
           std::to_string(relation.weight) + " ";
}

inline std::string textOf(const Contact& contact) {
    std::string text = std::to_string(contact.id) + contact.name;
    for (const std::string& address : contact.addresses)
        text += " " + address;
    return text;
}

inline std::string textOf(const std::vector<Relation>& relations) {
    std::string text;
    for (const Relation& relation : relations)
        text += textOf(relation);
    return text;
}

/// What the queries select, read.
inline std::vector<Contact> queriedContacts(const Database& database, const std::string& query) {
    std::vector<Contact> contacts;
    for (const XmlElement& element : database.root().select(query))
        contacts.push_back(readContact(element));
    return contacts;
}

inline std::vector<Relation> queriedRelations(const Database& database, const std::string& query) {
    std::vector<Relation> relations;
    for (const XmlElement& element : database.root().select(query))
        relations.push_back({readContactId(element.text("part1")),
                             readContactId(element.text("part2")),
                             readNumber(element.text("weight"))});
    return relations;
}

/// Whether the look-up of one answers with the first that the query selects.
template <typename Value>
bool isFirst(const std::optional<Value>& one, const std::vector<Value>& all) {
    return one ? !all.empty() && textOf(*one) == textOf(all.front()) : all.empty();
}

inline std::string contactFault(const Database& database, int id, const std::string& address) {
    if (!isFirst(database.contact(id), queriedContacts(database, queries::contactById(id))))
        return "contact " + std::to_string(id);
    std::vector<int> owners;
    for (const Contact& owner : queriedContacts(database, queries::contactByAddress(address)))
        owners.push_back(owner.id);
    owners.push_back(0);
    const bool first = database.contactIdByAddress(address) == owners.front();
    owners.pop_back();
    return first && database.ownersOf(address) == owners ? "" : "owners of " + address;
}

inline std::string relationFault(const Database& database, int id, int highestId) {
    if (textOf(database.relationsOf(id)) !=
        textOf(queriedRelations(database, queries::relationsOf(id))))
        return "relations of " + std::to_string(id);
    for (int other = id; other <= highestId; ++other)
        if (!isFirst(database.relationOfPair(id, other),
                     queriedRelations(database, queries::relationOfPair(id, other))))
            return "relation of " + std::to_string(id) + " and " + std::to_string(other);
    return {};
}

/// The first look-up of an id up to `highestId`, or of an address `p0@x` and on up to it, that
/// answers otherwise than its query; empty when all agree.
inline std::string indexFault(const Database& database, int highestId) {
    for (int id = 0; id <= highestId; ++id) {
        std::string fault = contactFault(database, id, "p" + std::to_string(id) + "@x");
        fault += relationFault(database, id, highestId);
        if (!fault.empty())
            return fault;
    }
    const bool counted =
        database.contactCount() == database.root().select(queries::kContacts).size() &&
        database.relationCount() == database.root().select(queries::kRelations).size();
    return counted ? "" : "the counts";
}

}  // namespace pelk
