#include "apps/cli/commands.h"

#include <QStringConverter>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>

#include "apps/cli/listing.h"
#include "apps/cli/terminal_dialogs.h"
#include "apps/cli/terminal_progress.h"
#include "db/date_stamp.h"
#include "db/document_check.h"
#include "platform/desktop/desktop_platform.h"
#include "platform/desktop/folder_lock.h"
#include "platform/desktop/mail/mail_store.h"

namespace pelk {
namespace {

constexpr std::size_t kStrongestShown = 20;

/// The document as UTF-8. Other programs write one that declares UTF-16 in that encoding.
std::string toUtf8(const std::string& document) {
    const std::optional<QStringConverter::Encoding> encoding =
        QStringConverter::encodingForData(document);
    if (!encoding || *encoding == QStringConverter::Utf8)
        return document;
    const QString decoded = QStringDecoder(*encoding).decode(document);
    return decoded.toStdString();
}

/// One run of a command: the platform, the database, and what is done with them.
class CommandRun {
 public:
    explicit CommandRun(const Arguments& arguments)
        : arguments_(arguments),
          desktop_(arguments.dataFolder),
          platform_(desktop_.with(dialogs_)),
          storage_(platform_) {}

    void scan();
    void contacts() { printContacts(std::cout, database(), desktop_.language(), arguments_.json); }
    void relations();
    void dump();
    void load();
    void exportCopy() { storage_.exportDatabase(database(), arguments_.operands[0]); }
    void strongest() { printStrongest(std::cout, database(), kStrongestShown); }

 private:
    Database& database();
    /// Keeps other programs from the database until the end of the run.
    void lock();
    int findContact(const std::string& contact);

    const Arguments& arguments_;
    TerminalDialogs dialogs_;
    DesktopPlatform desktop_;
    Platform platform_;
    Storage storage_;
    std::optional<FolderLock> lock_;
    std::unique_ptr<Database> database_;
};

Database& CommandRun::database() {
    if (!database_)
        database_ = storage_.loadDatabase();
    if (!database_)
        throw Error("There is no folder for the database.");
    return *database_;
}

void CommandRun::lock() {
    if (const std::optional<std::string> folder = storage_.databaseFolder())
        lock_.emplace(*folder);
}

void CommandRun::scan() {
    const std::unique_ptr<MailSession> session =
        openMailSession(arguments_.operands, {arguments_.outboxNames, arguments_.deletedNames});
    lock();
    const std::string since = database().date();
    ScanOutcome outcome;
    {
        TerminalProgress progress;
        outcome = scanAndSave(database(), storage_, platform_, *session, progress);
    }
    printOutcome(std::cout, outcome, database(), arguments_.json);
    if (outcome.mails == 0 && since != kNeverScanned)
        std::cerr << "pelk: Only e-mails that came after the last scan, " << since
                  << ", are counted.\n";
    if (outcome.databaseFull)
        std::cerr << "pelk: " << kDatabaseFullMessage << '\n';
    if (outcome.faults > 0)
        std::cerr << "pelk: " << outcome.faults
                  << " times something could not be read, first: " << outcome.firstFault << '\n';
}

void CommandRun::relations() {
    printRelations(std::cout, database(), findContact(arguments_.operands[0]), arguments_.json);
}

void CommandRun::dump() {
    printDocument(std::cout, database().xml());
}

void CommandRun::load() {
    const std::string& path = arguments_.operands[0];
    const std::string text = path == "-" ? std::string(std::istreambuf_iterator<char>(std::cin), {})
                                         : platform_.files.readWholeFile(path);
    try {
        database_ = storage_.parse(toUtf8(text));
        requireSoundDocument(database_->root(), desktop_.language());
    } catch (const Error& error) {
        throw Error("The document " + path + " cannot be used. " + error.what());
    }
    lock();
    const std::string kept = storage_.replaceDatabase(*database_);
    std::cout << "contacts: " << database_->contactCount() << '\n'
              << "relations: " << database_->relationCount() << '\n';
    if (!kept.empty())
        std::cout << "previous database: " << kept << '\n';
}

int CommandRun::findContact(const std::string& contact) {
    const std::optional<int> id = plainContactId(contact);
    if (id && database().contact(*id))
        return *id;
    if (!id)
        if (const int found = database().contactIdByAddress(desktop_.language().lowerCase(contact)))
            return found;
    throw Error("There is no contact " + contact + ".");
}

}  // namespace

void runCommand(const Arguments& arguments) {
    CommandRun run(arguments);
    if (arguments.command == "scan")
        run.scan();
    else if (arguments.command == "contacts")
        run.contacts();
    else if (arguments.command == "relations")
        run.relations();
    else if (arguments.command == "dump")
        run.dump();
    else if (arguments.command == "load")
        run.load();
    else if (arguments.command == "export")
        run.exportCopy();
}

void runWithoutDisplay(const Arguments& arguments) {
    CommandRun run(arguments);
    run.scan();
    std::cout << "\nThe strongest relations:\n";
    run.strongest();
}

}  // namespace pelk
