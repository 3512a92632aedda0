#pragma once
// Date stamps: 19 characters of local time, 2005-02-03T05:07:09, that order as plain text.

#include <string>
#include <string_view>

#include "platform/clock.h"

namespace pelk {

/// The stamp of a database that was never scanned.
inline constexpr std::string_view kNeverScanned = "1970-01-01T00:00:00";

/// The stamp of that moment; the year is written as it is, everything else with two digits.
std::string formatStamp(const LocalTime& time);

/// The moment of a stamp. The seconds are not read: they are 0. Characters that are not digits
/// read as 0.
LocalTime parseStamp(std::string_view stamp);

/// Whether the text is the stamp of a day that there is and of a time of that day.
bool isStamp(std::string_view text);

/// The wall-clock time from the stamp's moment to `now`, in days with fractions.
double ageInDays(std::string_view stamp, const LocalTime& now);

}  // namespace pelk
