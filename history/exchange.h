#pragma once
// The e-mails between two sides: per month and direction, with the days of the first and the last.

#include <cstdint>
#include <vector>

#include "history/month.h"

namespace pelk {

/// The e-mails of a month from one side's point of view.
struct MonthCount {
    Month month = 0;
    std::uint32_t sent = 0;
    std::uint32_t received = 0;

    friend bool operator==(const MonthCount&, const MonthCount&) = default;
};

/// The e-mails between two sides, seen from the first one.
struct Exchange {
    /// The days of the first and the last e-mail; 0 when there is none.
    Day first = 0;
    Day last = 0;
    /// In order of time, without empty months.
    std::vector<MonthCount> months;

    bool empty() const { return months.empty(); }
    std::uint64_t sent() const;
    std::uint64_t received() const;
    /// Adds an e-mail that the first side has sent, or received.
    void addSent(Day day);
    void addReceived(Day day);
    /// Adds the e-mails of another exchange of the same sides.
    void add(const Exchange& other);
    /// Returns the same e-mails seen from the other side.
    Exchange reversed() const;

    friend bool operator==(const Exchange&, const Exchange&) = default;

 private:
    MonthCount& monthWith(Day day);
    void includeDays(Day earliest, Day latest);
};

}  // namespace pelk
