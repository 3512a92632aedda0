#include "maintenance/saved_change.h"

#include "db/no_data_folder.h"

namespace pelk {

void saveChange(const Database& database, Storage& storage) {
    try {
        storage.saveDatabase(database);
    } catch (const NoDataFolder& error) {
        throw UnsavedChange(error.what(), error.what());
    } catch (const Error& error) {
        throw UnsavedChange(error.what(), std::string(error.what()) +
                                              " The change stands in memory only, and will be "
                                              "saved with the next change.");
    }
}

void tellIfUnsaved(Dialogs& dialogs, const std::function<void()>& act) {
    try {
        act();
    } catch (const UnsavedChange& change) {
        dialogs.message(change.notice(), Buttons::Ok);
    }
}

}  // namespace pelk
