#pragma once
// Exports the database, with its history beside it.

#include <string>

#include "db/database.h"
#include "db/storage.h"
#include "history/history_file.h"

namespace pelk {

/// Returns the path of the history that belongs to an exported database.
std::string exportedHistoryPath(const std::string& path);

/// Writes the database to a file of the user's choice, and the history, unless it is empty or null,
/// beside it. Throws `Error`, which says so when only the history is missing.
void exportDatabaseFile(const Database& database, const std::string& path, Storage& storage,
                        HistoryFile* history = nullptr);

}  // namespace pelk
