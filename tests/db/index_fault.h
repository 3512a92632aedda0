#pragma once
// Compares the look-ups of a database with the queries that define them.

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "db/database.h"
#include "db/queries.h"

namespace pelk {

inline std::string textOf(const Contact& contact) {
    std::string text = std::to_string(contact.id) + contact.name;
    for (const std::string& address : contact.addresses)
        text += " " + address;
    return text;
}

inline std::string textOf(const Relation& relation) {
    return std::to_string(relation.part1) + "-" + std::to_string(relation.part2) + ":" +
           std::to_string(relation.weight) + " ";
}

inline std::string textOf(const XmlElement& element) {
    if (element.name() == "contact")
        return textOf(readContact(element));
    return textOf(Relation{readContactId(element.text("part1")),
                           readContactId(element.text("part2")),
                           readNumber(element.text("weight"))});
}

inline std::string textOf(const auto& values) {
    std::string text;
    for (const auto& value : values)
        text += textOf(value);
    return text;
}

/// Whether a look-up found the first element that its query selects.
template <typename Value>
bool isFirst(const std::optional<Value>& one, const std::vector<XmlElement>& selected) {
    return (one ? textOf(*one) : "") == (selected.empty() ? "" : textOf(selected.front()));
}

/// Looks up all ids up to `highestId` and all addresses from p0@x on with numbers up to it. Returns
/// the first look-up that differs from its query; empty when all agree.
inline std::string indexFault(const Database& database, int highestId) {
    const auto select = [&](const std::string& query) { return database.root().select(query); };
    for (int id = 0; id <= highestId; ++id) {
        const std::string number = std::to_string(id);
        if (!isFirst(database.contact(id), select(queries::contactById(id))))
            return "contact " + number;
        const std::string address = "p" + number + "@x";
        std::vector<int> owners;
        for (const XmlElement& owner : select(queries::contactByAddress(address)))
            owners.push_back(readContact(owner).id);
        if (database.ownersOf(address) != owners ||
            database.contactIdByAddress(address) != (owners.empty() ? 0 : owners.front()))
            return "owners of " + address;
        if (textOf(database.relationsOf(id)) != textOf(select(queries::relationsOf(id))))
            return "relations of " + number;
        for (int other = id; other <= highestId; ++other)
            if (!isFirst(database.relationOfPair(id, other),
                         select(queries::relationOfPair(id, other))))
                return "relation of " + number + " and " + std::to_string(other);
    }
    const bool counted = database.contactCount() == select(queries::kContacts).size() &&
                         database.relationCount() == select(queries::kRelations).size();
    return counted ? "" : "the counts";
}

}  // namespace pelk
