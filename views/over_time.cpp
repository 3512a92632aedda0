#include "views/over_time.h"

#include <algorithm>

namespace pelk {
namespace {

constexpr int kMonthsPerYear = 12;

std::string labelOf(int number, Period period) {
    return period == Period::Yearly ? std::to_string(number) : monthText(number);
}

}  // namespace

std::vector<PeriodCount> periodsOf(const Exchange& exchange, Period period) {
    const auto numberOf = [period](Month month) {
        return period == Period::Yearly ? month / kMonthsPerYear : month;
    };
    std::vector<PeriodCount> periods;
    if (exchange.empty())
        return periods;
    const int first = numberOf(exchange.months.front().month);
    for (const MonthCount& count : exchange.months) {
        const int number = numberOf(count.month);
        while (first + static_cast<int>(periods.size()) <= number)
            periods.push_back({labelOf(first + static_cast<int>(periods.size()), period), 0, 0});
        periods.back().sent += count.sent;
        periods.back().received += count.received;
    }
    return periods;
}

Exchange exchangeOf(const Database& database, const History& history, int contactId) {
    const std::vector<std::string> own = addressesOf(database, {contactId});
    Exchange sum;
    for (const std::string& address : own)
        history.forEachPartner(address, [&](const std::string& partner, const Exchange& exchange) {
            if (std::find(own.begin(), own.end(), partner) == own.end())
                sum.add(exchange);
        });
    return sum;
}

Exchange exchangeOf(const Database& database, const History& history, int contactId, int otherId) {
    return history.between(addressesOf(database, {contactId}), addressesOf(database, {otherId}));
}

std::vector<std::string> addressesOf(const Database& database, const std::vector<int>& contactIds) {
    std::vector<std::string> addresses;
    for (const int id : contactIds)
        if (const std::optional<Contact> contact = database.contact(id))
            addresses.insert(addresses.end(), contact->addresses.begin(), contact->addresses.end());
    return addresses;
}

}  // namespace pelk
