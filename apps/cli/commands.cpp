#include "apps/cli/commands.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <optional>
#include <string_view>

#include "apps/cli/command_run.h"
#include "apps/cli/edit_commands.h"
#include "apps/cli/exchange_commands.h"
#include "apps/cli/link_commands.h"
#include "apps/cli/listing.h"
#include "apps/cli/terminal_progress.h"
#include "apps/cli/terminal_text.h"
#include "db/date_stamp.h"
#include "mailstore/mail_store.h"
#include "scan/scan_notes.h"

namespace pelk {
namespace {

constexpr std::size_t kStrongestShown = 20;

void scan(CommandRun& run) {
    const Arguments& arguments = run.arguments();
    const std::unique_ptr<MailSession> session =
        openMailSession(arguments.operands, arguments.mail);
    run.lock();
    Database& database = run.database();
    const std::string since = arguments.since.empty() ? database.date() : arguments.since;
    ScanOutcome outcome;
    {
        TerminalProgress progress;
        outcome = scanAndSave(database, run.storage(), run.platform(), *session, progress,
                              {arguments.copies, arguments.since});
    }
    printOutcome(std::cout, outcome, database, arguments.json);
    if (outcome.mails == 0 && since != kNeverScanned && outcome.newStores.empty())
        tell("Only e-mails that came after " +
             (arguments.since.empty() ? "the last scan, " + since + "," : since) + " are counted.");
    for (const std::string& warning : scanWarnings(outcome))
        tell(warning);
}

void listContacts(CommandRun& run) {
    printContacts(std::cout, contactsByName(run.database(), run.language()), run.arguments().json);
}

void listRelations(CommandRun& run) {
    const int contact = run.findContact(run.arguments().operands[0]);
    printRelations(std::cout, run.database(), contact, run.arguments().json);
}

void listDomains(CommandRun& run) {
    const std::vector<std::string>& operands = run.arguments().operands;
    const std::string domain = operands.empty() ? "" : run.language().lowerCase(operands[0]);
    const std::vector<DomainEntry> entries = domainEntries(run.database(), run.language(), domain);
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
    const std::vector<int> ids = run.findContacts(run.arguments().operands);
    printLinks(std::cout, run.database(), ids[0], ids[1], run.arguments().json);
}

void domainLinks(CommandRun& run) {
    const std::vector<std::string>& operands = run.arguments().operands;
    printDomainLinks(std::cout, run.database(),
                     {run.language().lowerCase(operands[0]), run.language().lowerCase(operands[1]),
                      run.arguments().best, run.arguments().json});
}

struct Action {
    std::string_view command;
    void (*run)(CommandRun&);
};

constexpr std::array kActions{
    Action{"scan", scan},
    Action{"contacts", listContacts},
    Action{"relations", listRelations},
    Action{"domains", listDomains},
    Action{"details", showDetails},
    Action{"rename", renameCommand},
    Action{"delete", deleteCommand},
    Action{"delete-domain", deleteDomainCommand},
    Action{"merge", mergeCommand},
    Action{"thresholds", thresholdsCommand},
    Action{"links", links},
    Action{"domain-links", domainLinks},
    Action{"dump", dumpCommand},
    Action{"load", loadCommand},
    Action{"export", exportCommand},
    Action{"import", importCommand},
    Action{"delete-database", deleteDatabaseCommand},
};

}  // namespace

void runCommand(const Arguments& arguments) {
    const auto* const action =
        std::find_if(kActions.begin(), kActions.end(),
                     [&arguments](const Action& a) { return a.command == arguments.command; });
    if (action == kActions.end())
        throw UsageError("unknown command " + arguments.command);
    CommandRun run(arguments);
    action->run(run);
}

void runWithoutDisplay(const Arguments& arguments) {
    CommandRun run(arguments);
    scan(run);
    std::cout << "\nThe strongest relations:\n";
    printStrongest(std::cout, run.database(), kStrongestShown);
}

}  // namespace pelk
