#pragma once
// Changes the thresholds and saves the database, for the form and the command line.

#include "db/database.h"
#include "db/storage.h"

namespace pelk {

/// Sets the thresholds in one step that can be undone, and saves. Throws `Error`, with nothing
/// changed, when `areAcceptable` refuses them, and `UnsavedChange`.
void changeThresholds(Database& database, Storage& storage, int strong, int weak);

}  // namespace pelk
