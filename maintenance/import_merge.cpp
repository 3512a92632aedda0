#include "maintenance/import_merge.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <unordered_set>
#include <vector>

namespace pelk {
namespace {

/// The question to the user. It does not list the contacts to merge, on purpose: the list is
/// emptied before the question is built, see `importContact`.
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
    /// Returns false when the import ends here: after an OK, the list of contacts to merge is
    /// empty, so the merge cannot be carried out.
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

    /// Returns the id of the contact that owns the imported contact's first address. Two imported
    /// contacts may lead to the same one.
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
    /// The imported ids of contacts that were left out.
    std::unordered_set<int> declined_;
};

}  // namespace

bool importMerge(Database& current, const Database& imported, ImportGuide& guide) {
    return Import(current, imported, guide).run();
}

}  // namespace pelk
