#pragma once
// When a message came into its store, read from what mail programs left behind.
//
// A time is given in seconds since 1970; a negative one stands for none that is of use.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace pelk {

inline constexpr std::int64_t kNoTime = -1;

/// The time in the line that parts messages in an mbox: "From jane@example.org Tue Jan  2 03:04:05
/// 2021", with or without seconds and zone, the year before or behind the zone. Without a zone the
/// time is UTC.
std::int64_t fromLineTime(std::string_view line);

/// The time of a `Date` field.
std::int64_t dateFieldTime(const std::string& value);

/// The number that the name of a Maildir file begins with; nothing when it begins with none.
std::optional<std::int64_t> maildirNameTime(std::string_view fileName);

/// In the user's time zone. Nothing outside of the years 1970 to 9999.
std::optional<LocalTime> localTime(std::int64_t time);

}  // namespace pelk
