#pragma once
// The dates of the mail stores on disk, see docs/database-format.md.
//
// They have a file of their own, as the database's document stays as it is. The file is written
// before the database, and a crash may come between: so it holds the dates for several states of
// the database, and those of the state that is found are taken.

#include <optional>
#include <string>
#include <vector>

#include "db/storage.h"
#include "db/store_dates.h"

namespace pelk {

/// The dates that belong to a database.
struct LoadedStoreDates {
    StoreDates dates;
    /// What the user is to be told: that the file is damaged, and what a scan counts now.
    std::optional<std::string> notice;
};

class StoreDatesFile {
 public:
    StoreDatesFile(Storage& storage, const Platform& platform)
        : storage_(storage), platform_(platform) {}

    /// The dates that belong to the database as it stands. Where none are remembered (the first
    /// scan since there are such dates; a damaged file), all stores have been counted until the
    /// database's date. Throws `Error` when the file cannot be read.
    LoadedStoreDates load(const Database& database);

    /// Has these dates, which belong to the database as it stands now, written just before the
    /// database is next saved. To be called after `load`.
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
    /// The latest last.
    std::vector<State> states_;
};

}  // namespace pelk
