#include "maintenance/database_export.h"

namespace pelk {

std::string exportedHistoryPath(const std::string& path) {
    return path + "-history";
}

void exportDatabaseFile(const Database& database, const std::string& path, Storage& storage,
                        HistoryFile* history) {
    storage.exportDatabase(database, path);
    if (history == nullptr)
        return;
    try {
        history->exportTo(exportedHistoryPath(path));
    } catch (const Error& error) {
        throw Error("The database was exported to " + path + "; only its history is missing. " +
                    error.what());
    }
}

}  // namespace pelk
