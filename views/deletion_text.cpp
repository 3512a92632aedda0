#include "views/deletion_text.h"

#include <optional>
#include <unordered_set>

namespace pelk {
namespace {

std::string countText(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string textOf(const std::string& what, std::size_t contacts, std::size_t relations) {
    return what + ": " + sizeText(contacts, relations) + ". Undo brings them back.";
}

}  // namespace

std::string sizeText(std::size_t contacts, std::size_t relations) {
    return countText(contacts, "contact") + ", " + countText(relations, "relation");
}

std::string deletionText(const Database& database, const std::string& what,
                         const std::vector<int>& ids) {
    std::unordered_set<int> counted;
    std::size_t relations = 0;
    for (const int id : ids) {
        if (!database.contact(id) || !counted.insert(id).second)
            continue;
        // A relation within the domain belongs to two of its contacts.
        for (const Relation& relation : database.relationsOf(id)) {
            const int partner = relation.partnerOf(id);
            relations += partner == id || !counted.contains(partner) ? 1 : 0;
        }
    }
    return textOf(what, counted.size(), relations);
}

std::string nameForUser(const Database& database, int id) {
    const std::optional<Contact> contact = database.contact(id);
    if (!contact || (contact->name.empty() && contact->addresses.empty()))
        return "contact " + std::to_string(id);
    return contact->name.empty() ? contact->addresses.front() : contact->name;
}

std::string deletionText(const Database& database) {
    return textOf("The database", database.contactCount(), database.relationCount());
}

}  // namespace pelk
