#include "history/history.h"

#include <algorithm>
#include <utility>

namespace pelk {
namespace {

/// Returns where the partner with that number is, or belongs, among an address's partners.
template <typename Partners>
auto placeOf(Partners& partners, std::size_t number) {
    // Partners are mostly read in their order.
    if (partners.empty() || partners.back().number < number)
        return partners.end();
    return std::lower_bound(
        partners.begin(), partners.end(), number,
        [](const auto& partner, std::size_t wanted) { return partner.number < wanted; });
}

}  // namespace

void AddressRecord::add(const AddressRecord& later) {
    sent += later.sent;
    automatic += later.automatic;
    if (!later.automaticBy.empty())
        automaticBy = later.automaticBy;
    if (!later.listBy.empty())
        listBy = later.listBy;
    inSentMail += later.inSentMail;
    isAccount = isAccount || later.isAccount;
}

void History::countMail(const std::string& from, const std::string& to, Day day) {
    if (from != to)
        countMail(numberOf(from), numberOf(to), day);
}

void History::countMail(std::size_t from, std::size_t to, Day day) {
    if (from == to)
        return;
    Pair& pair = pairOf(from, to);
    if (pair.one == from)
        pair.exchange.addSent(day);
    else
        pair.exchange.addReceived(day);
    ++revision_;
}

AddressRecord& History::record(const std::string& address) {
    ++revision_;
    return addresses_[numberOf(address)].record;
}

void History::forgetUser() {
    ++revision_;
    for (Address& address : addresses_) {
        address.record.inSentMail = 0;
        address.record.isAccount = false;
    }
}

const AddressRecord* History::findRecord(const std::string& address) const {
    const std::optional<std::size_t> number = findNumber(address);
    if (!number || addresses_[*number].record.empty())
        return nullptr;
    return &addresses_[*number].record;
}

Exchange History::between(std::span<const std::string> side,
                          std::span<const std::string> otherSide) const {
    Exchange sum;
    for (const std::string& address : side)
        for (const std::string& other : otherSide) {
            const std::optional<std::size_t> number = findNumber(address);
            const std::optional<std::size_t> otherNumber = findNumber(other);
            if (!number || !otherNumber)
                continue;
            if (const Pair* const pair = findPair(*number, *otherNumber))
                sum.add(pair->seenFrom(*number));
        }
    return sum;
}

void History::forEachPartner(
    const std::string& address,
    const std::function<void(const std::string& partner, const Exchange&)>& visit) const {
    const std::optional<std::size_t> number = findNumber(address);
    if (!number)
        return;
    for (const Partner& partner : addresses_[*number].partners)
        if (const Pair& pair = pairs_[partner.pair]; !pair.exchange.empty())
            visit(addresses_[partner.number].text, pair.seenFrom(*number));
}

void History::forEachAddress(const std::function<void(const std::string& address)>& visit) const {
    std::vector<std::string> all;
    for (const Address& address : addresses_)
        if (!address.record.empty() || hasExchange(address))
            all.push_back(address.text);
    std::sort(all.begin(), all.end());
    for (const std::string& address : all)
        visit(address);
}

void History::add(History&& other) {
    // A first scan counts most, and adds to nothing.
    if (addresses_.empty()) {
        swap(other);
        return;
    }
    HistoryChange change = additionOf(other);
    swap(change);
}

void History::keepOnly(const std::function<bool(const std::string& address)>& remains) {
    HistoryChange change = removalOfOthers(remains);
    swap(change);
}

/// Creates the missing entries now, so that `swap` cannot fail.
HistoryChange History::additionOf(const History& other) {
    HistoryChange change;
    std::vector<Number> numbers;
    for (const Address& address : other.addresses_) {
        const std::size_t number = numberOf(address.text);
        numbers.push_back(static_cast<Number>(number));
        if (address.record.empty())
            continue;
        AddressRecord sum = addresses_[number].record;
        sum.add(address.record);
        change.records_.emplace_back(numbers.back(), std::move(sum));
    }
    for (const Pair& added : other.pairs_) {
        const Number one = numbers[added.one];
        const Pair& pair = pairOf(one, numbers[added.other]);
        Exchange sum = pair.exchange;
        sum.add(pair.one == one ? added.exchange : added.exchange.reversed());
        change.pairs_.emplace_back(static_cast<Number>(&pair - pairs_.data()), std::move(sum));
    }
    return change;
}

HistoryChange History::removalOfOthers(
    const std::function<bool(const std::string& address)>& remains) const {
    HistoryChange change;
    std::vector<bool> isGone;
    for (Number number = 0; number < addresses_.size(); ++number) {
        isGone.push_back(!remains(addresses_[number].text));
        if (isGone.back())
            change.records_.emplace_back(number, AddressRecord());
    }
    for (Number place = 0; place < pairs_.size(); ++place)
        if (isGone[pairs_[place].one] || isGone[pairs_[place].other])
            change.pairs_.emplace_back(place, Exchange());
    return change;
}

void History::swap(HistoryChange& change) noexcept {
    for (auto& [place, exchange] : change.pairs_)
        std::swap(pairs_[place].exchange, exchange);
    for (auto& [number, record] : change.records_)
        std::swap(addresses_[number].record, record);
    ++revision_;
}

/// Both revisions become new ones.
void History::swap(History& other) noexcept {
    std::swap(*this, other);
    revision_ = other.revision_ = std::max(revision_, other.revision_) + 1;
}

std::size_t History::numberOf(const std::string& address) {
    const auto next = static_cast<Number>(addresses_.size());
    const auto [found, isNew] = numbers_.try_emplace(address, next);
    if (isNew)
        addresses_.push_back({address, {}, {}});
    return found->second;
}

void History::forEachExchange(
    std::size_t number,
    const std::function<void(std::size_t other, const Exchange&)>& visit) const {
    const std::vector<Partner>& partners = addresses_[number].partners;
    for (auto partner = placeOf(partners, number); partner != partners.end(); ++partner)
        if (const Pair& pair = pairs_[partner->pair]; !pair.exchange.empty())
            visit(partner->number, pair.exchange);
}

void History::addExchange(std::size_t number, std::size_t other, Exchange&& exchange) {
    Pair& pair = pairOf(number, other);
    if (pair.one != number)
        exchange = exchange.reversed();
    if (pair.exchange.empty())
        pair.exchange = std::move(exchange);
    else
        pair.exchange.add(exchange);
    ++revision_;
}

bool History::empty() const {
    return std::all_of(pairs_.begin(), pairs_.end(),
                       [](const Pair& pair) { return pair.exchange.empty(); }) &&
           std::all_of(addresses_.begin(), addresses_.end(),
                       [](const Address& address) { return address.record.empty(); });
}

bool History::hasExchange(const Address& address) const {
    return std::any_of(
        address.partners.begin(), address.partners.end(),
        [this](const Partner& partner) { return !pairs_[partner.pair].exchange.empty(); });
}

std::optional<std::size_t> History::findNumber(const std::string& address) const {
    const auto found = numbers_.find(address);
    return found == numbers_.end() ? std::nullopt : std::optional<std::size_t>(found->second);
}

const History::Pair* History::findPair(std::size_t number, std::size_t other) const {
    const std::vector<Partner>& partners = addresses_[number].partners;
    const auto place = placeOf(partners, other);
    return place != partners.end() && place->number == other ? &pairs_[place->pair] : nullptr;
}

/// Returns the pair of two addresses, a new one when there is none.
History::Pair& History::pairOf(std::size_t number, std::size_t other) {
    if (const Pair* const known = findPair(number, other))
        return pairs_[static_cast<std::size_t>(known - pairs_.data())];
    const auto next = static_cast<Number>(pairs_.size());
    const auto one = static_cast<Number>(std::min(number, other));
    const auto larger = static_cast<Number>(std::max(number, other));
    pairs_.push_back({one, larger, {}});
    insertPartner(one, {larger, next});
    insertPartner(larger, {one, next});
    return pairs_.back();
}

void History::insertPartner(std::size_t number, Partner partner) {
    std::vector<Partner>& partners = addresses_[number].partners;
    partners.insert(placeOf(partners, partner.number), partner);
}

bool operator==(const History& a, const History& b) {
    const auto contains = [](const History& whole, const History& part) {
        const auto sameRecord = [&whole](const History::Address& address) {
            const AddressRecord* const record = whole.findRecord(address.text);
            return address.record == (record != nullptr ? *record : AddressRecord());
        };
        const auto sameExchange = [&](const History::Pair& pair) {
            const std::string& one = part.addresses_[pair.one].text;
            const std::string& other = part.addresses_[pair.other].text;
            return whole.between({&one, 1}, {&other, 1}) == pair.exchange;
        };
        return std::all_of(part.addresses_.begin(), part.addresses_.end(), sameRecord) &&
               std::all_of(part.pairs_.begin(), part.pairs_.end(), sameExchange);
    };
    return contains(a, b) && contains(b, a);
}

}  // namespace pelk
