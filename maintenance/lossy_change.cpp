#include "maintenance/lossy_change.h"

#include <utility>

namespace pelk {

void changeWithBackup(Database& database, Storage& storage,
                      const std::function<void(Database&)>& change) {
    storage.keepBackup();
    change(database);
    storage.saveChange(database);
}

void replaceWithBackup(Database& database, Storage& storage, Database&& content) {
    storage.keepBackup();
    storage.saveDatabase(content);
    database.replaceContent(std::move(content));
}

}  // namespace pelk
