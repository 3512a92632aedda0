#include "maintenance/contact_edits.h"

#include "maintenance/contact_merge.h"
#include "maintenance/lossy_change.h"
#include "maintenance/saved_change.h"
#include "platform/utf8.h"

namespace pelk {
namespace {

std::string requireName(const std::string& text) {
    std::string name = cleanText(text);
    if (name.empty())
        throw Error("A contact cannot be given an empty name.");
    return name;
}

}  // namespace

void renameContact(Database& database, Storage& storage, int id, const std::string& name) {
    const std::string newName = requireName(name);
    if (!database.contact(id))
        return;
    database.inStep("rename of " + database.nameOf(id),
                    [&] { database.renameContact(id, newName); });
    saveChange(database, storage);
}

void deleteContacts(Database& database, Storage& storage, const std::vector<int>& ids,
                    const std::string& what) {
    changeWithBackup(database, storage, "deletion of " + what,
                     [&ids](Database& changed) { changed.removeContacts(ids); });
}

bool mergeContacts(Database& database, Storage& storage, const std::vector<int>& ids,
                   const std::string& name) {
    const std::string newName = requireName(name);
    const std::vector<int> contacts = contactsToFold(database, ids);
    if (contacts.size() < 2)
        return false;
    changeWithBackup(
        database, storage, "merge into " + newName,
        [&contacts, &newName](Database& changed) { foldContacts(changed, contacts, newName); });
    return true;
}

}  // namespace pelk
