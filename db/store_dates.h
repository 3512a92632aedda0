#pragma once
// Until when the e-mails of each mail store have been counted.
//
// A store, or a folder in one, is known by its place (`MailFolder::place`). What is remembered of a
// place holds for all places inside it, except for those that something is remembered of
// themselves.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "db/counted_ahead.h"
#include "db/date_stamp.h"

namespace pelk {

/// Whether `inner` is the place `outer`, or lies inside it.
bool encloses(std::string_view outer, std::string_view inner);

struct StoreDate {
    std::string place;
    /// When a scan first counted it; `kNeverScanned` when that was before anybody took note.
    std::string first;
    /// E-mails with a stamp up to this one have been counted.
    std::string date;
    /// Beside those, these have been counted.
    CountedAhead ahead;
    /// Fingerprints of its first e-mails, by which it is known again at another place.
    std::vector<std::uint64_t> sample;
};

class StoreDates {
 public:
    /// From when on the e-mails of a place are counted of which nothing is remembered.
    std::string unknownSince{kNeverScanned};

    const std::vector<StoreDate>& all() const { return all_; }
    void add(StoreDate date) { all_.push_back(std::move(date)); }

    /// What holds for the place; null when nothing is remembered of it.
    const StoreDate* governing(const std::string& place) const;
    /// All e-mails counted ahead at the place, inside it and around it.
    CountedAhead aheadAround(const std::string& place) const;

    /// Whether there are samples of stores that lie neither inside the place nor around it.
    bool hasSampleApartFrom(const std::string& place) const;
    /// The first such store whose sample shares half with this one, or has grown to it; null when
    /// there is none.
    const StoreDate* sameMail(const std::string& place,
                              const std::vector<std::uint64_t>& sample) const;
    /// Remembers of `to` and what is inside it whatever is remembered of `from`, and forgets `from`
    /// unless it is still there.
    void move(const std::string& from, const std::string& to, bool stillThere);

    /// Puts a store's date in the place of all dates at its place and inside it. Some of it could
    /// not be read and has dates of its own: what is remembered inside of those places stays.
    void put(StoreDate store, std::vector<StoreDate> unread);

    /// Makes the best of dates that belong to another state of the database than that of `stamp`:
    /// nothing is taken for counted that was counted after it.
    void forgetAfter(const std::string& stamp);

 private:
    std::vector<StoreDate> all_;
};

}  // namespace pelk
