#include "maintenance/import_merge.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <unordered_set>
#include <vector>

namespace pelk {
namespace {

/// What the user is asked. The contacts that would be merged are not named: the list of them is
/// emptied before the question is put together. This order is kept on purpose, see `importContact`.
std::string mergeQuestion(const std::string& name) {
    return "The following contacts will be merged under the name " + name + ": Shall I continue?";
}

class Import {
 public:
    Import(Database& current, const Database& imported, ImportGuide& guide)
        : current_(current), imported_(imported), guide_(guide) {}

    bool run() {
        current_.countMails(readInteger(imported_.totalMails()));
        for (const XmlElement& element : imported_.contactElements()) {
            guide_.itemStarted();
            if (!importContact(element))
                return false;
        }
        for (const Relation& relation : imported_.relations()) {
            guide_.itemStarted();
            importRelation(relation);
        }
        return true;
    }

 private:
    /// Returns false when the import ends here. After an OK there is no survivor left in the list
    /// to merge anybody into, so nothing can be done but to end.
    bool importContact(const XmlElement& element) {
        const Contact contact = readContact(element);
        const std::vector<int> owners = ownersOf(contact.addresses);
        if (std::adjacent_find(owners.begin(), owners.end(), std::not_equal_to()) != owners.end()) {
            declined_.insert(contact.id);
            return !guide_.confirmsMerge(mergeQuestion(contact.name));
        }
        if (owners.empty())
            current_.addCopyOfContact(element);
        else
            current_.addAddresses(owners.back(), contact.addresses);
        return true;
    }

    std::vector<int> ownersOf(const std::vector<std::string>& addresses) const {
        std::vector<int> owners;
        for (const std::string& address : addresses)
            for (const int id : current_.ownersOf(address))
                owners.push_back(id);
        return owners;
    }

    void importRelation(const Relation& relation) {
        if (declined_.contains(relation.part1) || declined_.contains(relation.part2))
            return;
        const std::optional<int> id1 = currentIdOf(relation.part1);
        const std::optional<int> id2 = currentIdOf(relation.part2);
        if (id1 && id2 && id1 != id2)
            current_.addRelationWeight(*id1, *id2, roundToInteger(relation.weight));
    }

    /// The contact that owns the first address of an imported one; both ends of a relation may have
    /// become one person.
    std::optional<int> currentIdOf(int importedId) const {
        const std::optional<Contact> contact = imported_.contact(importedId);
        if (!contact || contact->addresses.empty())
            return std::nullopt;
        const std::vector<int> owners = current_.ownersOf(contact->addresses.front());
        return owners.empty() ? std::nullopt : std::optional(owners.front());
    }

    Database& current_;
    const Database& imported_;
    ImportGuide& guide_;
    /// Imported ids.
    std::unordered_set<int> declined_;
};

}  // namespace

bool importMerge(Database& current, const Database& imported, ImportGuide& guide) {
    return Import(current, imported, guide).run();
}

}  // namespace pelk
