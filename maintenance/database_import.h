#pragma once
// The commands that replace the whole content of the database: import, deletion, and loading a
// plain document. After a failure, both the memory and the disk hold the old content.

#include <memory>
#include <string>

#include "db/database.h"
#include "db/storage.h"
#include "history/history_file.h"
#include "maintenance/import_merge.h"

namespace pelk {

enum class ImportOutcome {
    Imported,
    /// The file cannot be read, or is not a contact database.
    Unreadable,
    /// The document breaks the rules of `requireSoundDocument`.
    Unsound,
    /// The user answered OK to a merge, which ends the import (see `importMerge`).
    Ended,
};

struct ImportResult {
    ImportOutcome outcome = ImportOutcome::Imported;
    /// The fault in an unreadable or unsound file. After a successful import, the reasons why the
    /// history beside the file was left out, and why the plain copy could not be written.
    std::string fault;
};

/// Merges the database of an exported file into the current one, in one step that can be undone:
/// keeps a backup, saves, and writes the plain copy. Outcomes other than `Imported` change nothing.
/// Throws `Error`, with nothing changed, when the database is full, has been edited during the
/// import, or cannot be saved. Adds the history beside the file, if any, to `history`, unless that
/// is null.
ImportResult importDatabaseFile(Database& current, const std::string& path, Storage& storage,
                                ImportGuide& guide, HistoryFile* history = nullptr);

/// Keeps a backup, empties the database in one step that can be undone, and saves it. Throws
/// `Error`, with nothing changed, when anything fails.
void deleteDatabase(Database& current, Storage& storage);

/// Reads a plain document. Throws `Error`, which names the fault, when the text is not a sound
/// document of a contact database.
OpenedDatabase readDocument(std::string xml, Storage& storage);

/// Replaces the user's file with the database and keeps the old file beside it. Returns the path of
/// the old file; empty when there was none. Throws `Error`, with nothing changed.
std::string replaceDatabase(const Database& database, Storage& storage);

}  // namespace pelk
