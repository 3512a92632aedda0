#pragma once
// The date up to which the e-mails of each mail store have been counted.
//
// A place (`MailFolder::place`) identifies a store, or a folder in one. The entry of a place
// applies to all places inside it that have no entry of their own.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "db/counted_ahead.h"
#include "db/date_stamp.h"

namespace pelk {

/// Returns whether `inner` is the place `outer` or inside it.
bool encloses(std::string_view outer, std::string_view inner);

struct StoreDate {
    std::string place;
    /// The stamp of the scan that first counted the store; `kNeverScanned` if it is unknown.
    std::string first;
    /// All e-mails with a stamp up to this one have been counted.
    std::string date;
    /// Later e-mails that have been counted, too.
    CountedAhead ahead;
    /// The fingerprints of the first e-mails, which identify the store at another place.
    std::vector<std::uint64_t> sample;
};

class StoreDates {
 public:
    /// Returns the date after which e-mails are counted at a place without an entry.
    std::string unknownSince{kNeverScanned};

    const std::vector<StoreDate>& all() const { return all_; }
    void add(StoreDate date) { all_.push_back(std::move(date)); }

    /// Returns the entry that applies to the place; null when there is none.
    const StoreDate* governing(const std::string& place) const;
    /// Returns all e-mails counted ahead at the place, inside it and around it.
    CountedAhead aheadAround(const std::string& place) const;

    /// Returns whether there are samples of stores neither inside the place nor around it.
    bool hasSampleApartFrom(const std::string& place) const;
    /// Returns the first such store whose sample shares half of this one, or has grown into it;
    /// null when there is none.
    const StoreDate* sameMail(const std::string& place,
                              const std::vector<std::uint64_t>& sample) const;
    /// Copies the entries of `from` and of the places inside it to `to`. Removes them from `from`
    /// unless it still exists.
    void move(const std::string& from, const std::string& to, bool stillThere);

    /// Replaces all dates at and inside the store's place by the store's date. Keeps the entries
    /// inside the places that could not be read, which have dates of their own.
    void put(StoreDate store, std::vector<StoreDate> unread);

    /// Adapts dates that belong to another state of the database to the state of `stamp`: e-mails
    /// counted after it do not count as counted.
    void forgetAfter(const std::string& stamp);

 private:
    std::vector<StoreDate> all_;
};

}  // namespace pelk
