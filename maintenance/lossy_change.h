#pragma once
// The rule for every change that takes something away for good: first a copy of the user's file is
// kept beside it, then comes the change, then the save. Nothing else calls `Storage::keepBackup`.

#include <functional>

#include "db/database.h"
#include "db/storage.h"

namespace pelk {

/// Keeps the copy, changes the database and saves it (see `Storage::saveChange`). Throws `Error`,
/// with nothing changed, when the copy cannot be kept.
void changeWithBackup(Database& database, Storage& storage,
                      const std::function<void(Database&)>& change);

/// Keeps the copy, saves another content in the place of the database's, and takes it over. Throws
/// `Error`, with nothing changed in memory or on the disk, when any of that cannot be done.
void replaceWithBackup(Database& database, Storage& storage, Database&& content);

}  // namespace pelk
