#pragma once
// Undoes and redoes steps of the database, and saves it.
//
// No backup is kept first: what a step took away or added is in the backup from before that step.

#include "db/database.h"
#include "db/storage.h"

namespace pelk {

/// Undo or redo one step. Return false when there is none. Throw `UnsavedChange` when the result
/// cannot be saved, and `Error`, with nothing changed, when the step cannot be undone.
bool undoStep(Database& database, Storage& storage);
bool redoStep(Database& database, Storage& storage);

}  // namespace pelk
