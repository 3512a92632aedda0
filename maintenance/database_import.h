#pragma once
// The commands that replace the whole content of the database: import, deletion, and loading a
// plain document. Whatever goes wrong, what is in memory and what is on disk stay as they were, and
// agree.

#include <memory>
#include <optional>
#include <string>

#include "db/database.h"
#include "db/storage.h"
#include "maintenance/import_merge.h"

namespace pelk {

enum class ImportOutcome {
    Imported,
    /// The file cannot be read, or holds no document of a contact database.
    Unreadable,
    /// The file holds a document that no program of ours can have written.
    Unsound,
    /// The user allowed a merge, which ends the import (see `importMerge`).
    Ended,
};

struct ImportResult {
    ImportOutcome outcome = ImportOutcome::Imported;
    /// What is wrong with a file that is unreadable or unsound; after an import, why the plain copy
    /// could not be written, which takes nothing back. Empty when there is nothing to say.
    std::string fault;
};

/// Folds the database in an exported file into the current one, keeps a backup of that, saves it,
/// and writes the plain copy. Only an import that comes to its end changes anything. Throws
/// `Error`, with nothing changed, when the database is full, has been edited meanwhile, or cannot
/// be saved.
ImportResult importDatabaseFile(Database& current, const std::string& path, Storage& storage,
                                ImportGuide& guide);

/// Empties the database, keeps a backup and saves. Throws `Error`, with nothing changed, when that
/// cannot be done.
void deleteDatabase(Database& current, Storage& storage);

/// A plain document that comes from elsewhere.
struct LoadedDocument {
    std::unique_ptr<Database> database;
    /// What had to be put right in it, said to the user, if anything.
    std::optional<std::string> putRight;
};

/// Throws `Error`, which names the fault, when the text is no sound document of a database.
LoadedDocument readDocument(std::string xml, Storage& storage);

/// Puts a database in the place of the user's file, which is kept beside it. Returns under which
/// path, empty when there was none. Throws `Error`, with nothing changed.
std::string replaceDatabase(const Database& database, Storage& storage);

}  // namespace pelk
