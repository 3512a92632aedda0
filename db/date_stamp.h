#pragma once
// Date stamps: local time in 19 characters, 2005-02-03T05:07:09, a form of ISO 8601 without a zone.
// Stamps sort correctly as text.

#include <string>
#include <string_view>

#include "platform/clock.h"

namespace pelk {

/// The date of a database before its first scan.
inline constexpr std::string_view kNeverScanned = "1970-01-01T00:00:00";

/// Returns the stamp of a time. The year is not padded; all other fields have two digits.
std::string formatStamp(const LocalTime& time);

/// Returns the time of a stamp. Ignores the seconds and sets them to 0. A field that does not start
/// with a number reads as 0.
LocalTime parseStamp(std::string_view stamp);

/// Returns what the wall clock showed `seconds` before.
LocalTime earlier(const LocalTime& time, int seconds);

/// Whether the text is a stamp with an existing day and time of day.
bool isStamp(std::string_view text);

/// Returns the wall-clock time from `stamp` to `now`, in days with fractions.
double ageInDays(std::string_view stamp, const LocalTime& now);

}  // namespace pelk
