#include "maintenance/database_restore.h"

#include <utility>

#include "db/date_stamp.h"
#include "views/deletion_text.h"

namespace pelk {

std::string restoreCopy(Database& current, Database&& copy, Storage& storage) {
    std::string kept;
    current.inStep("restore of the last copy", [&] {
        current.replaceContent(std::move(copy));
        storage.restoreCompanion(current);
        kept = storage.replaceDatabase(current);
    });
    return kept;
}

std::string contentText(const Database& database) {
    std::string date = database.date();
    const std::string size = sizeText(database.contactCount(), database.relationCount());
    if (date == kNeverScanned)
        return size + ", never scanned";
    if (const std::size_t letter = date.find('T'); letter != std::string::npos)
        date[letter] = ' ';
    return size + ", e-mails up to " + date;
}

}  // namespace pelk
