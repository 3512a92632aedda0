#include "maintenance/lossy_change.h"

#include "maintenance/saved_change.h"

namespace pelk {

void changeWithBackup(Database& database, Storage& storage, const std::string& name,
                      const std::function<void(Database&)>& change) {
    storage.keepBackup();
    database.inStep(name, [&] {
        change(database);
        storage.followLosses(database);
    });
    saveChange(database, storage);
}

void changeAndSaveWithBackup(Database& database, Storage& storage, const std::string& name,
                             const std::function<void(Database&)>& change) {
    storage.keepBackup();
    database.inStep(name, [&] {
        change(database);
        storage.followLosses(database);
        storage.saveDatabase(database);
    });
}

}  // namespace pelk
