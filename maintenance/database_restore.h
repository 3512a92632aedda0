#pragma once
// Brings back the last copy that was kept before a deletion, a merge or an import.

#include <string>

#include "db/database.h"
#include "db/storage.h"

namespace pelk {

/// Replaces the content by that of the copy (`Storage::readBackup`) in one step that can be undone,
/// and saves it. Keeps the user's file beside it, and returns the path of that file; empty when
/// there was none. Throws `Error`, with the database and its file unchanged, when anything fails.
std::string restoreCopy(Database& current, Database&& copy, Storage& storage);

/// Returns what the database holds, for questions: "51 contacts, 204 relations, e-mails up to
/// 2026-11-20 09:30:00".
std::string contentText(const Database& database);

}  // namespace pelk
