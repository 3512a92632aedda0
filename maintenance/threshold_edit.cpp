#include "maintenance/threshold_edit.h"

#include "db/thresholds.h"
#include "maintenance/saved_change.h"

namespace pelk {

void changeThresholds(Database& database, Storage& storage, int strong, int weak) {
    if (!areAcceptable(strong, weak))
        throw Error(kUnacceptableThresholds);
    database.inStep("change of the thresholds", [&] { database.setThresholds(strong, weak); });
    saveChange(database, storage);
}

}  // namespace pelk
