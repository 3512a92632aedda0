#pragma once
// Every change that deletes data goes through these functions, which first back up the user's file
// (`Storage::keepBackup`), then change the database, then save it.

#include <functional>

#include "db/database.h"
#include "db/storage.h"

namespace pelk {

/// Backs up, changes the database and saves it. Throws `Error`, with nothing changed, when the
/// backup fails, and `UnsavedChange` when the change cannot be saved.
void changeWithBackup(Database& database, Storage& storage,
                      const std::function<void(Database&)>& change);

/// Backs up, saves `content` in place of the database's content, and then moves it into `database`.
/// Throws `Error`, with nothing changed in memory or on disk, when a step fails.
void replaceWithBackup(Database& database, Storage& storage, Database&& content);

}  // namespace pelk
