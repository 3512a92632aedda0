#include "maintenance/lossy_change.h"

#include <utility>

#include "maintenance/saved_change.h"

namespace pelk {

void changeWithBackup(Database& database, Storage& storage,
                      const std::function<void(Database&)>& change) {
    storage.keepBackup();
    change(database);
    saveChange(database, storage);
}

void replaceWithBackup(Database& database, Storage& storage, Database&& content) {
    storage.keepBackup();
    storage.saveDatabase(content);
    database.replaceContent(std::move(content));
}

}  // namespace pelk
