#pragma once
// The dates of the mail stores on disk, see docs/database-format.md.
//
// The dates are in a separate file because the format of the database's document is fixed. The file
// is written before the database, and a crash may occur in between. So the file holds the dates for
// several states of the database, and `load` uses those of the current state.

#include <optional>
#include <string>
#include <vector>

#include "db/storage.h"
#include "db/store_dates.h"

namespace pelk {

/// The dates that belong to a database.
struct LoadedStoreDates {
    StoreDates dates;
    /// The message for the user when the file is damaged: it says what a scan counts now.
    std::optional<std::string> notice;
};

class StoreDatesFile {
 public:
    StoreDatesFile(Storage& storage, const Platform& platform)
        : storage_(storage), platform_(platform) {}

    /// Returns the dates for the current state of the database. If there are none (the database is
    /// older than the file, or the file is damaged), all stores count as counted up to the
    /// database's date. Throws `Error` when the file cannot be read.
    LoadedStoreDates load(const Database& database);

    /// Writes these dates, which belong to the current state of the database, just before the next
    /// save of the database. Requires: `load` was called.
    void hold(const StoreDates& dates, const Database& database);

 private:
    struct State {
        /// The database's date and counter of e-mails.
        std::string date;
        std::string mails;
        StoreDates dates;
    };

    static State stateOf(const Database& database, StoreDates dates);
    std::optional<std::string> readOrNotice(const std::string& date);
    void read();
    bool takeMatching(const Database& database);
    StoreDates assume(const std::string& date) const;
    std::string text() const;

    Storage& storage_;
    Platform platform_;
    bool fileIsUsable_ = false;
    /// In order; the latest state is the last.
    std::vector<State> states_;
};

}  // namespace pelk
