#include "apps/cli/command_run.h"

#include <utility>

#include "apps/cli/terminal_text.h"

namespace pelk {

void CommandRun::lock() {
    lock_.emplace(storage_.databaseFolder());
}

Database& CommandRun::database() {
    if (!database_) {
        OpenedDatabase opened = lock_ ? storage_.openDatabase() : storage_.readDatabase();
        database_ = std::move(opened.database);
        if (opened.notice)
            tell(*opened.notice);
    }
    return *database_;
}

const History& CommandRun::history() {
    if (const std::optional<std::string> notice = history_.notice())
        tell(*notice);
    return history_.history();
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
