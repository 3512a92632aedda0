#pragma once
// When a contact exchanged e-mails: with all others, or with one of them.

#include <cstdint>
#include <string>
#include <vector>

#include "db/database.h"
#include "history/history.h"

namespace pelk {

/// The step of a table or chart of e-mails over time.
enum class Period { Yearly, Monthly };

/// The e-mails of one year or month.
struct PeriodCount {
    /// 2026, or 2026-11.
    std::string label;
    std::uint64_t sent = 0;
    std::uint64_t received = 0;

    friend bool operator==(const PeriodCount&, const PeriodCount&) = default;
};

/// Returns the e-mails of each period from the first e-mail to the last one, with the empty periods
/// in between.
std::vector<PeriodCount> periodsOf(const Exchange& exchange, Period period);

/// Returns the e-mails of a contact with all others, seen from the contact. An e-mail between it
/// and several others counts for each of them.
Exchange exchangeOf(const Database& database, const History& history, int contactId);
/// Returns the e-mails between two contacts, seen from the first.
Exchange exchangeOf(const Database& database, const History& history, int contactId, int otherId);

/// Returns the addresses of contacts. Skips ids without a contact.
std::vector<std::string> addressesOf(const Database& database, const std::vector<int>& contactIds);

}  // namespace pelk
