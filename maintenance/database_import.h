#pragma once
// The commands that replace the whole content of the database: import and deletion. Whatever goes
// wrong, what is in memory and what is on disk stay as they were, and agree.

#include <string>

#include "db/database.h"
#include "db/storage.h"
#include "maintenance/import_merge.h"

namespace pelk {

enum class ImportOutcome {
    Imported,
    /// The file cannot be read, or is no database.
    Unreadable,
    /// The user allowed a merge, which ends the import (see `importMerge`).
    Ended,
};

/// Folds the database in an exported file into the current one, keeps a backup of that, saves it,
/// and writes the plain copy. Only an import that comes to its end changes anything. Throws `Error`
/// when the database is full, has been edited meanwhile, or cannot be saved: nothing is changed
/// then; and when only the plain copy cannot be written, after all else is done.
ImportOutcome importDatabaseFile(Database& current, const std::string& path, Storage& storage,
                                 ImportGuide& guide);

/// Empties the database, keeps a backup and saves. Throws `Error`, with nothing changed, when that
/// cannot be done.
void deleteDatabase(Database& current, Storage& storage);

}  // namespace pelk
