#include "apps/cli/edit_commands.h"

#include <charconv>
#include <iostream>
#include <optional>
#include <unordered_set>
#include <utility>

#include "apps/cli/listing.h"
#include "apps/cli/terminal_text.h"
#include "maintenance/contact_edits.h"
#include "maintenance/threshold_edit.h"
#include "views/domains.h"

namespace pelk {
namespace {

/// Returns the contacts that exist, each once.
std::vector<Contact> contactsOf(const Database& database, const std::vector<int>& ids) {
    std::vector<Contact> contacts;
    std::unordered_set<int> seen;
    for (const int id : ids)
        if (std::optional<Contact> contact = database.contact(id);
            contact && seen.insert(id).second)
            contacts.push_back(std::move(*contact));
    return contacts;
}

/// Removes the contacts, saves, and prints which were removed.
void removeAndSave(CommandRun& run, const std::vector<int>& ids) {
    Database& database = run.database();
    const std::vector<Contact> contacts = contactsOf(database, ids);
    const std::size_t contactsBefore = database.contactCount();
    const std::size_t relationsBefore = database.relationCount();
    deleteContacts(database, run.storage(), ids);
    printContacts(std::cout, contacts, run.arguments().json);
    if (run.arguments().json)
        return;
    Line(std::cout) << "contacts deleted: " << contactsBefore - database.contactCount();
    Line(std::cout) << "relations deleted: " << relationsBefore - database.relationCount();
}

/// Throws `Error` unless the text is an integer from 0 to 100.
int readPercentage(const std::string& text) {
    int number = -1;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end || number < 0 || number > 100)
        throw Error("A threshold must be a whole number from 0 to 100, not " + text + ".");
    return number;
}

}  // namespace

void renameCommand(CommandRun& run) {
    run.lock();
    const int id = run.findContact(run.arguments().operands[0]);
    renameContact(run.database(), run.storage(), id, run.arguments().operands[1]);
    printContact(std::cout, *run.database().contact(id), run.arguments().json);
}

void deleteCommand(CommandRun& run) {
    run.lock();
    removeAndSave(run, run.findContacts(run.arguments().operands));
}

void deleteDomainCommand(CommandRun& run) {
    if (run.arguments().yes)
        run.lock();
    const std::string domain = run.language().lowerCase(run.arguments().operands[0]);
    const std::vector<int> ids = contactsToDelete(run.database(), domain);
    if (ids.empty())
        throw Error((domain.starts_with('@') ? "No contact has the address "
                                             : "No contact has an address that ends in ") +
                    domain + ".");
    if (run.arguments().yes) {
        removeAndSave(run, ids);
        return;
    }
    printContacts(std::cout, contactsOf(run.database(), ids), run.arguments().json);
    tell("Nothing was deleted. Add --yes to delete these contacts.");
}

void mergeCommand(CommandRun& run) {
    run.lock();
    const std::vector<int> ids = run.findContacts(run.arguments().operands);
    if (run.arguments().name.empty())
        throw UsageError("pelk merge needs --name NAME");
    Database& database = run.database();
    if (!mergeContacts(database, run.storage(), ids, run.arguments().name))
        throw Error("These are all the same contact.");
    printContact(std::cout, *database.contact(ids.front()), run.arguments().json);
}

void thresholdsCommand(CommandRun& run) {
    const std::vector<std::string>& operands = run.arguments().operands;
    if (operands.size() == 1)
        throw UsageError("pelk thresholds takes both thresholds or none");
    if (!operands.empty()) {
        const int strong = readPercentage(operands[0]);
        const int weak = readPercentage(operands[1]);
        run.lock();
        changeThresholds(run.database(), run.storage(), strong, weak);
    }
    printThresholds(std::cout, run.database().thresholds(), run.arguments().json);
}

}  // namespace pelk
