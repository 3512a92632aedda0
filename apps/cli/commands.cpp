#include "apps/cli/commands.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <optional>
#include <string_view>

#include "apps/cli/command_run.h"
#include "apps/cli/correspondent_commands.h"
#include "apps/cli/duplicates_command.h"
#include "apps/cli/edit_commands.h"
#include "apps/cli/exchange_commands.h"
#include "apps/cli/history_commands.h"
#include "apps/cli/link_commands.h"
#include "apps/cli/listing.h"
#include "apps/cli/mail_options.h"
#include "apps/cli/map_commands.h"
#include "apps/cli/password_command.h"
#include "apps/cli/stores_command.h"
#include "apps/cli/terminal_progress.h"
#include "apps/cli/terminal_text.h"
#include "db/date_stamp.h"
#include "mailstore/imap/imap_account.h"
#include "mailstore/imap/imap_session.h"
#include "mailstore/imap/mixed_session.h"
#include "mailstore/mail_store.h"
#include "scan/scan_notes.h"

namespace pelk {
namespace {

constexpr std::size_t kStrongestShown = 20;

std::unique_ptr<MailSession> openServer(const std::string& url, const Arguments& arguments) {
    const ImapAccount account = readImapAddress(url);
    ImapServerOptions server;
    server.secret = [command = arguments.passwordCommand, url] {
        return runPasswordCommand(command, url);
    };
    return openImapSession(account, std::move(server), arguments.mail);
}

std::unique_ptr<MailSession> openMail(const Arguments& arguments) {
    const std::vector<std::string>& mail = arguments.operands;
    if (arguments.passwordCommand.empty() && std::any_of(mail.begin(), mail.end(), isImapAddress))
        throw UsageError("a mail server needs --password-command");
    return openMixedSession(mail, mailOptions(arguments), [&arguments](const std::string& url) {
        return openServer(url, arguments);
    });
}

void scan(CommandRun& run) {
    const Arguments& arguments = run.arguments();
    const std::unique_ptr<MailSession> session = openMail(arguments);
    run.lock();
    Database& database = run.database();
    const std::string since = arguments.since.empty() ? database.date() : arguments.since;
    ScanOutcome outcome;
    {
        TerminalProgress progress;
        outcome = scanAndSave(database, run.storage(), run.platform(), *session, progress,
                              {arguments.copies, arguments.since}, &run.historyFile());
    }
    printOutcome(std::cout, outcome, database, arguments.json);
    if (outcome.mails == 0 && since != kNeverScanned && outcome.newStores.empty())
        tell("Only e-mails that came after " +
             (arguments.since.empty() ? "the last scan, " + since + "," : since) + " are counted.");
    for (const std::string& warning : scanWarnings(outcome))
        tell(warning);
}

void listContacts(CommandRun& run) {
    std::vector<Contact> contacts = contactsByName(run.database(), run.language());
    std::erase_if(contacts, [leftOut = leftOutContacts(run)](const Contact& contact) {
        return leftOut.contains(contact.id);
    });
    printContacts(std::cout, contacts, run.arguments().json);
}

void listRelations(CommandRun& run) {
    const int contact = run.findContact(run.arguments().operands[0]);
    printRelations(std::cout, run.database(), contact, leftOutContacts(run), run.arguments().json);
}

void listDomains(CommandRun& run) {
    const std::vector<std::string>& operands = run.arguments().operands;
    const std::string domain = operands.empty() ? "" : run.language().lowerCase(operands[0]);
    const std::vector<DomainEntry> entries =
        domainEntries(run.database(), run.language(), domain, leftOutContacts(run));
    if (entries.empty() && !domain.empty())
        throw Error("There is no domain " + domain + ".");
    printDomains(std::cout, entries, run.arguments().json);
}

void showDetails(CommandRun& run) {
    const std::vector<std::string>& operands = run.arguments().operands;
    const std::vector<int> ids = run.findContacts(operands);
    const std::optional<RelationDetails> details = relationDetails(run.database(), ids[0], ids[1]);
    if (!details)
        throw Error("There is no relation between " + operands[0] + " and " + operands[1] + ".");
    printDetails(std::cout, *details, run.arguments().json);
}

void links(CommandRun& run) {
    const Arguments& arguments = run.arguments();
    const std::vector<int> ids = run.findContacts(arguments.operands);
    printLinks(
        std::cout, run.database(),
        {ids[0], ids[1], arguments.count, run.findContacts(arguments.without), arguments.json});
}

void domainLinks(CommandRun& run) {
    const std::vector<std::string>& operands = run.arguments().operands;
    printDomainLinks(std::cout, run.database(),
                     {run.language().lowerCase(operands[0]), run.language().lowerCase(operands[1]),
                      run.arguments().best, run.arguments().json});
}

constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

constexpr std::array kCommands{
    Command{"stores", 0, 0, "no operands", storesCommand},
    Command{"scan", 1, kAnyNumber, "at least one operand", scan},
    Command{"contacts", 0, 0, "no operands", listContacts},
    Command{"relations", 1, 1, "one contact", listRelations},
    Command{"domains", 0, 1, "at most one domain", listDomains},
    Command{"details", 2, 2, "two contacts", showDetails},
    Command{"history", 1, 2, "one contact or two", historyCommand},
    Command{"cold", 0, 0, "no operands", coldCommand},
    Command{"rename", 2, 2, "a contact and its new name", renameCommand},
    Command{"delete", 1, kAnyNumber, "at least one contact", deleteCommand},
    Command{"delete-domain", 1, 1, "one domain", deleteDomainCommand},
    Command{"merge", 2, kAnyNumber, "at least two contacts", mergeCommand},
    Command{"thresholds", 0, 2, "both thresholds or none", thresholdsCommand},
    Command{"links", 2, 2, "two contacts", links},
    Command{"domain-links", 2, 2, "two domains", domainLinks},
    Command{"picture", 0, 1, "at most one contact", pictureCommand},
    Command{"graph", 0, 0, "no operands", graphCommand},
    Command{"duplicates", 0, 0, "no operands", duplicatesCommand},
    Command{"lists", 0, 0, "no operands", listsCommand},
    Command{"me", 0, kAnyNumber, "any number of addresses", meCommand},
    Command{"dump", 0, 0, "no operands", dumpCommand},
    Command{"load", 1, 1, "one file", loadCommand},
    Command{"export", 1, 1, "one file", exportCommand},
    Command{"import", 1, 1, "one file", importCommand},
    Command{"delete-database", 0, 0, "no operands", deleteDatabaseCommand},
};

}  // namespace

const Command* findCommand(std::string_view name) {
    const auto* const found = std::find_if(kCommands.begin(), kCommands.end(),
                                           [name](const Command& c) { return c.name == name; });
    return found == kCommands.end() ? nullptr : found;
}

void runCommand(const Arguments& arguments) {
    CommandRun run(arguments);
    arguments.command->run(run);
}

void runWithoutDisplay(const Arguments& arguments) {
    CommandRun run(arguments);
    scan(run);
    std::cout << "\nThe strongest relations:\n";
    printStrongest(std::cout, run.database(), kStrongestShown);
}

}  // namespace pelk
