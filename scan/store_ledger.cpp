#include "scan/store_ledger.h"

#include <algorithm>

#include "scan/store_sample.h"

namespace pelk {

StoreLedger::Store StoreLedger::beginStore(const std::string& place,
                                           const std::function<Sample()>& takeSample,
                                           int clockTolerance) {
    walk_ = {};
    walk_.place = place;
    Store store = Store::Known;
    if (distinguishesStores()) {
        store = lookUp(place, takeSample);
        walk_.begun = formatStamp(earlier(clock_->now(), clockTolerance));
        walk_.ahead = known_.aheadAround(place);
        visited_.insert(place);
    }
    beginFolder(place);
    return store;
}

StoreLedger::Store StoreLedger::lookUp(const std::string& place,
                                       const std::function<Sample()>& takeSample) {
    if (known_.governing(place) != nullptr)
        return Store::Known;
    if (known_.hasSampleApartFrom(place))
        if (const StoreDate* const same = known_.sameMail(place, takeSample())) {
            const std::string from = same->place;
            known_.move(from, place, visited_.contains(from));
            return Store::Recognised;
        }
    const bool hasNoDates = known_.unknownSince != kNeverScanned || date_ == kNeverScanned;
    return hasNoDates ? Store::Known : Store::New;
}

void StoreLedger::beginFolder(const std::string& place) {
    walk_.folders.push_back({place, {}});
    if (!since_.empty())
        cutOff_ = since_;
    else if (!distinguishesStores())
        cutOff_ = date_;
    else if (const StoreDate* const date = known_.governing(place))
        cutOff_ = date->date;
    else
        cutOff_ = known_.unknownSince;
}

StoreLedger::Age StoreLedger::ageOf(MailItem& item, const std::string& stamp) {
    if (!distinguishesStores())
        return stamp > cutOff_ ? Age::New : Age::Old;
    if (walk_.sample.size() < kSampleSize)
        if (const std::uint64_t print = item.fingerprint())
            walk_.sample.push_back(print);
    const bool isOld = stamp <= cutOff_;
    if (!isOld && (walk_.ahead.empty() || !walk_.ahead.contains(item.fingerprint())))
        return Age::New;
    remember(item, stamp, cutOff_);
    return isOld ? Age::Old : Age::CountedAhead;
}

void StoreLedger::noteCounted(MailItem& item, const std::string& stamp, std::uint64_t print) {
    if (!distinguishesStores())
        return;
    if (print == 0) {
        walk_.countedUnidentified = true;
        return;
    }
    walk_.folders.back().prints.push_back(print);
    remember(item, stamp, walk_.begun);
}

/// Remembers the fingerprint of a counted e-mail that the new date will not cover. `scan` is the
/// stamp of the scan that counted it, unless an earlier one is on record.
void StoreLedger::remember(MailItem& item, const std::string& stamp, const std::string& scan) {
    if (stamp <= walk_.begun && !item.isDatedAhead())
        return;
    if (const std::uint64_t print = item.fingerprint()) {
        const std::string* const known = walk_.ahead.scanOf(print);
        walk_.later.try_emplace(print, known != nullptr ? *known : scan);
    }
}

void StoreLedger::noteUnread(const std::string& place) {
    // Of a folder that fails as a whole each item does.
    if (walk_.unread.empty() || walk_.unread.back() != place)
        walk_.unread.push_back(place);
}

bool StoreLedger::isUnread(const std::string& place) const {
    return std::find(walk_.unread.begin(), walk_.unread.end(), place) != walk_.unread.end();
}

bool StoreLedger::endStore() {
    if (!distinguishesStores())
        return walk_.unread.empty();
    const bool countsLater = !walk_.countedUnidentified || walk_.unread.empty();
    if (walk_.countedUnidentified)
        walk_.unread.clear();
    const std::string ended = now();
    std::vector<StoreDate> unread;
    for (const std::string& place : walk_.unread)
        if (std::none_of(unread.begin(), unread.end(),
                         [&place](const StoreDate& date) { return date.place == place; }))
            unread.push_back(dateOfUnread(place, ended));
    const auto whole = std::find_if(unread.begin(), unread.end(), [this](const StoreDate& date) {
        return date.place == walk_.place;
    });
    known_.put(whole != unread.end() ? *whole : dateOfRead(ended), unread);
    return countsLater;
}

/// Returns the place's date from before this scan.
StoreDate StoreLedger::dateBefore(const std::string& place, const std::string& now) const {
    if (const StoreDate* const date = known_.governing(place))
        return {place, date->first, date->date, {}, date->sample};
    const bool wasCounted = known_.unknownSince != kNeverScanned;
    return {place, wasCounted ? std::string(kNeverScanned) : now, known_.unknownSince, {}, {}};
}

/// Without fingerprints, e-mails that arrived during the walk cannot be told apart, so the date
/// becomes the end of the walk and skips those not counted.
StoreDate StoreLedger::dateOfRead(const std::string& now) const {
    StoreDate date = dateBefore(walk_.place, now);
    date.date = walk_.countedUnidentified ? now : walk_.begun;
    for (const auto& [print, scan] : walk_.later)
        date.ahead.add(scan, {print});
    if (walk_.unread.empty() || date.sample.empty())
        date.sample = walk_.sample;
    return date;
}

StoreDate StoreLedger::dateOfUnread(const std::string& place, const std::string& now) const {
    StoreDate date = dateBefore(place, now);
    date.ahead = known_.aheadAround(place);
    for (const FolderCount& folder : walk_.folders)
        if (encloses(place, folder.place))
            date.ahead.add(now, folder.prints);
    if (place != walk_.place)
        date.sample.clear();
    else if (date.sample.empty())
        date.sample = walk_.sample;
    return date;
}

StoreDates StoreLedger::finish(bool whole) && {
    if (whole)
        known_.unknownSince = kNeverScanned;
    return std::move(known_);
}

}  // namespace pelk
