#pragma once
// Keeps account of which e-mails of each store have been counted, through one scan.
//
// No e-mail may be counted twice, and none be lost. So the date of a store is the moment at which
// the walk through it began, and what was counted from then on is remembered by its fingerprint. A
// folder of which something could not be read keeps the date that it had, and what was counted in
// it nevertheless is remembered likewise. A mail client without fingerprints has one date alone.

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
    /// Knows one date for all mail.
    explicit StoreLedger(std::string date) : date_(std::move(date)) {}
    /// `date` is for stores that cannot be told apart. `since`, if it is not empty, takes the place
    /// of all dates. `clock` outlives the ledger.
    StoreLedger(StoreDates known, std::string date, std::string since, Clock& clock)
        : known_(std::move(known)),
          date_(std::move(date)),
          since_(std::move(since)),
          clock_(&clock) {}

    enum class Store { Known, New, Recognised };
    using Sample = std::vector<std::uint64_t>;

    /// Begins the walk through a store. `takeSample` is called if it may be one that has moved.
    Store beginStore(const std::string& place, const std::function<Sample()>& takeSample);
    /// Begins the items of a folder of the store.
    void beginFolder(const std::string& place);
    /// The stamp up to which e-mails of the folder, or else of the store, have been counted.
    const std::string& cutOff() const { return cutOff_; }

    /// The place of the folder.
    const std::string& folder() const { return walk_.folders.back().place; }

    enum class Age { Old, CountedAhead, New };
    /// To be asked once of each e-mail of the folder, with the stamp of its creation.
    Age ageOf(MailItem& item, const std::string& stamp);
    /// Takes note that a new e-mail has been counted, or passed over because it was. `print` is its
    /// fingerprint.
    void noteCounted(MailItem& item, const std::string& stamp, std::uint64_t print);
    /// Takes note that at this place of the store something could not be read.
    void noteUnread(const std::string& place) { walk_.unread.push_back(place); }

    /// Ends the walk through the store. Returns whether all that could not be read will be new to a
    /// later scan.
    bool endStore();

    /// The dates after this scan. `whole` tells that it has met all stores.
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
        /// E-mails that the date will not tell, with the scan that counted them.
        std::map<std::uint64_t, std::string> later;
        /// An e-mail without a fingerprint was counted.
        bool untold = false;
    };

    bool tellsStoresApart() const { return clock_ != nullptr && !walk_.place.empty(); }
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
