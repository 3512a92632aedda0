#pragma once
// Tracks, during one scan, which e-mails of each store have been counted.
//
// No e-mail may be counted twice or missed. So a store's date is the time at which the walk through
// it began, and the fingerprints of counted e-mails created after that are kept. A folder with a
// read error keeps its old date, and the fingerprints of the e-mails counted in it are kept, too.
// Where the mail client has no fingerprints or places, one date serves for all mail.

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "db/date_stamp.h"
#include "db/store_dates.h"
#include "platform/clock.h"
#include "platform/mail_client.h"

namespace pelk {

class StoreLedger {
 public:
    /// Uses one date for all mail.
    explicit StoreLedger(std::string date) : date_(std::move(date)) {}
    /// `date` applies to stores without a place. `since`, if not empty, overrides all dates.
    /// `clock` outlives the ledger.
    StoreLedger(StoreDates known, std::string date, std::string since, Clock& clock)
        : known_(std::move(known)),
          date_(std::move(date)),
          since_(std::move(since)),
          clock_(&clock) {}

    enum class Store { Known, New, Recognised };
    using Sample = std::vector<std::uint64_t>;

    /// Begins the walk through a store. Calls `takeSample` if the store may have been moved. The
    /// clock that stamps the e-mails may be `clockTolerance` seconds behind the user's: e-mails
    /// from that long before the walk are remembered by their fingerprints.
    Store beginStore(const std::string& place, const std::function<Sample()>& takeSample,
                     int clockTolerance = 0);
    /// Begins the items of a folder of the store.
    void beginFolder(const std::string& place);
    /// The stamp up to which e-mails of the current folder or store have been counted.
    const std::string& cutOff() const { return cutOff_; }

    /// The place of the current folder.
    const std::string& folder() const { return walk_.folders.back().place; }

    /// `CountedAhead`: created after the cut-off, but counted already.
    enum class Age { Old, CountedAhead, New };
    /// Classifies an e-mail of the current folder by the stamp of its creation. Requires: called
    /// once for each e-mail.
    Age ageOf(MailItem& item, const std::string& stamp);
    /// Notes that a new e-mail has been counted, or skipped as a copy of a counted one. `print` is
    /// its fingerprint.
    void noteCounted(MailItem& item, const std::string& stamp, std::uint64_t print);
    /// Notes a read error at this place of the store.
    void noteUnread(const std::string& place);
    /// Whether a read error was noted at exactly this place.
    bool isUnread(const std::string& place) const;

    /// Ends the walk through the store. Returns whether a later scan will count everything that
    /// could not be read.
    bool endStore();

    /// Returns the dates after this scan. `whole` says whether the scan has reached all stores.
    StoreDates finish(bool whole) &&;

 private:
    struct FolderCount {
        std::string place;
        std::vector<std::uint64_t> prints;
    };
    /// The walk through one store.
    struct Walk {
        std::string place;
        std::string begun;
        CountedAhead ahead;
        Sample sample;
        std::vector<FolderCount> folders;
        std::vector<std::string> unread;
        /// Fingerprints of counted e-mails that the new date does not cover, with the stamps of the
        /// scans that counted them.
        std::map<std::uint64_t, std::string> later;
        /// Whether an e-mail without a fingerprint was counted.
        bool countedUnidentified = false;
    };

    bool distinguishesStores() const { return clock_ != nullptr && !walk_.place.empty(); }
    std::string now() const { return formatStamp(clock_->now()); }
    Store lookUp(const std::string& place, const std::function<Sample()>& takeSample);
    void remember(MailItem& item, const std::string& stamp, const std::string& scan);
    StoreDate dateBefore(const std::string& place, const std::string& now) const;
    StoreDate dateOfRead(const std::string& now) const;
    StoreDate dateOfUnread(const std::string& place, const std::string& now) const;

    StoreDates known_;
    const std::string date_;
    const std::string since_;
    Clock* const clock_ = nullptr;
    std::set<std::string> visited_;
    Walk walk_;
    std::string cutOff_;
};

}  // namespace pelk
