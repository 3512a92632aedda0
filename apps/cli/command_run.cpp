#include "apps/cli/command_run.h"

namespace pelk {

void CommandRun::lock() {
    if (const std::optional<std::string> folder = storage_.databaseFolder())
        lock_.emplace(*folder);
}

Database& CommandRun::database() {
    if (!database_)
        database_ = lock_ ? storage_.openDatabase() : storage_.readDatabase();
    if (!database_)
        throw Error("There is no folder for the database.");
    return *database_;
}

int CommandRun::findContact(const std::string& contact) {
    const std::optional<int> id = plainContactId(contact);
    if (id && database().contact(*id))
        return *id;
    if (!id)
        if (const int found = database().ownerOf(language().lowerCase(contact)))
            return found;
    throw Error("There is no contact " + contact + ".");
}

std::vector<int> CommandRun::findContacts(const std::vector<std::string>& contacts) {
    std::vector<int> ids;
    ids.reserve(contacts.size());
    for (const std::string& contact : contacts)
        ids.push_back(findContact(contact));
    return ids;
}

}  // namespace pelk
