#include "db/store_dates.h"

#include <algorithm>
#include <utility>

namespace pelk {
namespace {

bool related(const std::string& a, const std::string& b) {
    return encloses(a, b) || encloses(b, a);
}

std::size_t countShared(const std::vector<std::uint64_t>& a, const std::vector<std::uint64_t>& b) {
    return static_cast<std::size_t>(std::count_if(a.begin(), a.end(), [&b](std::uint64_t print) {
        return std::find(b.begin(), b.end(), print) != b.end();
    }));
}

/// A small store may have grown since it was counted, and then still has all of its first e-mails.
/// One or two common e-mails prove nothing, unless the store has no others, because lists send the
/// same e-mail to many people.
bool isSameMail(const std::vector<std::uint64_t>& before, const std::vector<std::uint64_t>& now) {
    constexpr std::size_t kTelling = 3;
    const std::size_t shared = countShared(before, now);
    const std::size_t larger = std::max(before.size(), now.size());
    if (shared < kTelling)
        return shared > 0 && shared == larger;
    return 2 * shared >= larger || shared == before.size();
}

}  // namespace

/// The root of a file system ends with a slash, unlike every other place.
bool encloses(std::string_view outer, std::string_view inner) {
    return inner.starts_with(outer) &&
           (inner.size() == outer.size() || outer.ends_with('/') || inner[outer.size()] == '/');
}

const StoreDate* StoreDates::governing(const std::string& place) const {
    const StoreDate* longest = nullptr;
    for (const StoreDate& date : all_)
        if (encloses(date.place, place) &&
            (longest == nullptr || date.place.size() > longest->place.size()))
            longest = &date;
    return longest;
}

CountedAhead StoreDates::aheadAround(const std::string& place) const {
    CountedAhead ahead;
    for (const StoreDate& date : all_)
        if (related(date.place, place))
            ahead.add(date.ahead);
    return ahead;
}

bool StoreDates::hasSampleApartFrom(const std::string& place) const {
    return std::any_of(all_.begin(), all_.end(), [&place](const StoreDate& date) {
        return !date.sample.empty() && !related(date.place, place);
    });
}

const StoreDate* StoreDates::sameMail(const std::string& place,
                                      const std::vector<std::uint64_t>& sample) const {
    for (const StoreDate& date : all_)
        if (!related(date.place, place) && isSameMail(date.sample, sample))
            return &date;
    return nullptr;
}

void StoreDates::move(const std::string& from, const std::string& to, bool stillThere) {
    std::vector<StoreDate> moved;
    for (const StoreDate& date : all_)
        if (encloses(from, date.place)) {
            moved.push_back(date);
            moved.back().place.replace(0, from.size(), to);
        }
    if (!stillThere)
        std::erase_if(all_, [&from](const StoreDate& date) { return encloses(from, date.place); });
    all_.insert(all_.end(), std::make_move_iterator(moved.begin()),
                std::make_move_iterator(moved.end()));
}

void StoreDates::put(StoreDate store, std::vector<StoreDate> unread) {
    std::erase_if(all_, [&](const StoreDate& date) {
        const bool stays = std::any_of(unread.begin(), unread.end(), [&date](const StoreDate& u) {
            return u.place != date.place && encloses(u.place, date.place);
        });
        return encloses(store.place, date.place) && !stays;
    });
    for (StoreDate& date : unread)
        if (date.place != store.place)
            all_.push_back(std::move(date));
    all_.push_back(std::move(store));
}

void StoreDates::forgetAfter(const std::string& stamp) {
    unknownSince = std::min(unknownSince, stamp);
    std::erase_if(all_, [&stamp](const StoreDate& date) { return date.first > stamp; });
    for (StoreDate& date : all_) {
        date.date = std::min(date.date, stamp);
        date.ahead.forgetAfter(stamp);
    }
}

}  // namespace pelk
