#pragma once
// Every change that deletes data goes through these functions, which first back up the user's file
// (`Storage::keepBackup`), then change the database in one step that can be undone, then save it.

#include <functional>
#include <string>

#include "db/database.h"
#include "db/storage.h"

namespace pelk {

/// Backs up, changes the database in the step `name` and saves it. Throws `Error`, with nothing
/// changed, when the backup or `change` fails, and `UnsavedChange` when the change cannot be saved.
void changeWithBackup(Database& database, Storage& storage, const std::string& name,
                      const std::function<void(Database&)>& change);

/// Backs up, and changes and saves the database in the step `name`. Throws `Error`, with nothing
/// changed in memory or on disk, when anything fails, the save included.
void changeAndSaveWithBackup(Database& database, Storage& storage, const std::string& name,
                             const std::function<void(Database&)>& change);

}  // namespace pelk
