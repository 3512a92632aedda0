#include "apps/cli/exchange_commands.h"

#include <unistd.h>

#include <QStringConverter>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>

#include "apps/cli/listing.h"
#include "apps/cli/terminal_text.h"
#include "maintenance/database_export.h"
#include "maintenance/database_import.h"

namespace pelk {
namespace {

/// Returns the document as UTF-8. Other programs write documents that declare UTF-16 in that
/// encoding.
std::string toUtf8(const std::string& document) {
    const std::optional<QStringConverter::Encoding> encoding =
        QStringConverter::encodingForData(document);
    if (!encoding || *encoding == QStringConverter::Utf8)
        return document;
    const QString decoded = QStringDecoder(*encoding).decode(document);
    return decoded.toStdString();
}

void printSize(const Database& database) {
    Line(std::cout) << "contacts: " << database.contactCount();
    Line(std::cout) << "relations: " << database.relationCount();
}

/// Answers the questions of an import from the command line, else asks on the terminal.
class TerminalGuide : public ImportGuide {
 public:
    explicit TerminalGuide(std::optional<bool> answer) : answer_(answer) {}

    bool confirmsMerge(const std::string& question) override {
        if (answer_)
            return *answer_;
        std::cerr << terminalText(question);
        if (::isatty(STDIN_FILENO) == 0) {
            std::cerr << " Cancel\n";
            return false;
        }
        std::cerr << " [ok/Cancel] ";
        std::string line;
        std::getline(std::cin, line);
        return line == "ok" || line == "OK";
    }

 private:
    std::optional<bool> answer_;
};

}  // namespace

void dumpCommand(CommandRun& run) {
    printDocument(std::cout, run.database().xml());
}

void loadCommand(CommandRun& run) {
    const std::string& path = run.arguments().operands[0];
    const std::string text = path == "-" ? std::string(std::istreambuf_iterator<char>(std::cin), {})
                                         : run.platform().files.readWholeFile(path);
    OpenedDatabase document;
    try {
        document = readDocument(toUtf8(text), run.storage());
    } catch (const Error& error) {
        throw Error("The document " + path + " cannot be used. " + error.what());
    }
    run.lock();
    const std::string kept = replaceDatabase(*document.database, run.storage());
    printSize(*document.database);
    if (document.notice)
        tell(*document.notice);
    if (!kept.empty())
        Line(std::cout) << "previous database: " << kept;
}

void exportCommand(CommandRun& run) {
    exportDatabaseFile(run.database(), run.arguments().operands[0], run.storage(),
                       &run.historyFile());
}

void importCommand(CommandRun& run) {
    const std::string& path = run.arguments().operands[0];
    run.lock();
    Database& database = run.database();
    TerminalGuide guide(run.arguments().answer);
    const ImportResult result =
        importDatabaseFile(database, path, run.storage(), guide, &run.historyFile());
    switch (result.outcome) {
        case ImportOutcome::Unreadable:
        case ImportOutcome::Unsound:
            throw Error("Error while loading file " + path + ": " + result.fault);
        case ImportOutcome::Ended:
            throw Error("The import stopped at this merge. Nothing was imported.");
        case ImportOutcome::Imported:
            break;
    }
    if (!result.fault.empty())
        tell(result.fault);
    printSize(database);
}

void deleteDatabaseCommand(CommandRun& run) {
    if (!run.arguments().yes)
        throw Error("Nothing was deleted. Add --yes to delete the database.");
    run.lock();
    deleteDatabase(run.database(), run.storage());
    std::cout << "The database is empty.\n";
}

}  // namespace pelk
