#include "maintenance/undo.h"

#include "maintenance/saved_change.h"

namespace pelk {

bool undoStep(Database& database, Storage& storage) {
    if (!database.undo())
        return false;
    saveChange(database, storage);
    return true;
}

bool redoStep(Database& database, Storage& storage) {
    if (!database.redo())
        return false;
    saveChange(database, storage);
    return true;
}

}  // namespace pelk
