#include "maintenance/database_import.h"

#include <cstdint>
#include <optional>
#include <utility>

#include "db/default_documents.h"
#include "db/document_check.h"
#include "maintenance/database_export.h"
#include "maintenance/lossy_change.h"

namespace pelk {
namespace {

/// The database in the file, or the reason why it is refused.
struct ImportedFile {
    std::unique_ptr<Database> database;
    ImportResult refusal;
};

ImportedFile readFile(const std::string& path, Storage& storage) {
    std::unique_ptr<Database> database;
    try {
        database = storage.importDatabase(path);
    } catch (const Error& error) {
        return {nullptr, {ImportOutcome::Unreadable, error.what()}};
    }
    try {
        requireSoundDocument(database->root());
    } catch (const Error& error) {
        return {nullptr, {ImportOutcome::Unsound, error.what()}};
    }
    return {std::move(database), {}};
}

/// The history beside the file, or the reason why it is left out.
struct ImportedHistory {
    std::optional<History> history;
    std::string fault;
};

ImportedHistory readHistoryBeside(const std::string& path, HistoryFile* history) {
    if (history == nullptr)
        return {};
    try {
        return {history->readExported(exportedHistoryPath(path)), {}};
    } catch (const Error& error) {
        return {std::nullopt, std::string("The history was not imported. ") + error.what()};
    }
}

/// Gives the answer of all questions in an import that has come to its end.
class Decliner : public ImportGuide {
 public:
    bool confirmsMerge(const std::string&) override { return false; }
};

/// Returns the last part of a path on any platform.
std::string fileName(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

/// The import is complete by now, and a second one would count every weight twice. So a failure to
/// write the copy does not fail the import.
std::string writePlainCopy(const Database& database, Storage& storage) {
    try {
        storage.writePlainCopy(database);
    } catch (const Error& error) {
        return "The file was imported and the database saved; only the plain copy of it is "
               "missing. " +
               std::string(error.what());
    }
    return {};
}

}  // namespace

ImportResult importDatabaseFile(Database& current, const std::string& path, Storage& storage,
                                ImportGuide& guide, HistoryFile* history) {
    const ImportedFile file = readFile(path, storage);
    if (!file.database)
        return file.refusal;
    const std::uint64_t revision = current.revision();
    const std::unique_ptr<Database> merged = storage.parse(current.xml());
    if (!importMerge(*merged, *file.database, guide))
        return {ImportOutcome::Ended, {}};
    if (current.revision() != revision)
        throw Error(
            "The database has been changed during the import. Nothing was imported; please "
            "import the file again.");
    ImportedHistory beside = readHistoryBeside(path, history);
    // The edits are made again, so that undoing them takes no copy of the whole database.
    Decliner decliner;
    changeAndSaveWithBackup(current, storage, "import of " + fileName(path),
                            [&](Database& database) {
                                importMerge(database, *file.database, decliner);
                                if (beside.history)
                                    history->addInStep(database, std::move(*beside.history));
                            });
    const std::string copyFault = writePlainCopy(current, storage);
    const bool hasBoth = !beside.fault.empty() && !copyFault.empty();
    return {ImportOutcome::Imported, beside.fault + (hasBoth ? "\n" : "") + copyFault};
}

void deleteDatabase(Database& current, Storage& storage) {
    const std::unique_ptr<Database> empty = storage.parse(std::string(kEmptiedDocument));
    changeAndSaveWithBackup(
        current, storage, "deletion of the database",
        [&empty](Database& database) { database.replaceContent(std::move(*empty)); });
}

OpenedDatabase readDocument(std::string xml, Storage& storage) {
    OpenedDatabase document{storage.parse(std::move(xml)), std::nullopt};
    document.notice = document.database->putCountRight();
    requireSoundDocument(document.database->root());
    return document;
}

std::string replaceDatabase(const Database& database, Storage& storage) {
    return storage.replaceDatabase(database);
}

}  // namespace pelk
