#include "history/exchange.h"

#include <algorithm>
#include <utility>

namespace pelk {
namespace {

/// Returns the sum, or the largest number when that is too large.
std::uint32_t sumOf(std::uint32_t one, std::uint32_t other) {
    const std::uint32_t sum = one + other;
    return sum < one ? ~std::uint32_t{0} : sum;
}

/// Returns the entry of the month, a new one when there is none. E-mails mostly come in order of
/// time.
MonthCount& entryOf(std::vector<MonthCount>& months, Month month) {
    if (!months.empty() && months.back().month == month)
        return months.back();
    const auto at = std::lower_bound(
        months.begin(), months.end(), month,
        [](const MonthCount& count, Month wanted) { return count.month < wanted; });
    return at != months.end() && at->month == month ? *at : *months.insert(at, {month, 0, 0});
}

}  // namespace

std::uint64_t Exchange::sent() const {
    std::uint64_t sum = 0;
    for (const MonthCount& count : months)
        sum += count.sent;
    return sum;
}

std::uint64_t Exchange::received() const {
    std::uint64_t sum = 0;
    for (const MonthCount& count : months)
        sum += count.received;
    return sum;
}

void Exchange::addSent(Day day) {
    std::uint32_t& count = monthWith(day).sent;
    count = sumOf(count, 1);
}

void Exchange::addReceived(Day day) {
    std::uint32_t& count = monthWith(day).received;
    count = sumOf(count, 1);
}

MonthCount& Exchange::monthWith(Day day) {
    includeDays(day, day);
    return entryOf(months, monthOf(day));
}

void Exchange::includeDays(Day earliest, Day latest) {
    first = empty() ? earliest : std::min(first, earliest);
    last = empty() ? latest : std::max(last, latest);
}

void Exchange::add(const Exchange& other) {
    if (other.empty())
        return;
    includeDays(other.first, other.last);
    for (const MonthCount& count : other.months) {
        MonthCount& mine = entryOf(months, count.month);
        mine.sent = sumOf(mine.sent, count.sent);
        mine.received = sumOf(mine.received, count.received);
    }
}

Exchange Exchange::reversed() const {
    Exchange other = *this;
    for (MonthCount& count : other.months)
        std::swap(count.sent, count.received);
    return other;
}

}  // namespace pelk
