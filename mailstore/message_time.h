#pragma once
// Parses the times at which messages arrived.
//
// Times are in seconds since 1970. A negative time means that none is known.
//
// A time without a zone is kept as local wall-clock time. The program that wrote it ran in the
// user's time zone, and times are compared as local times only. So an hour that the clock shows
// twice, or never, needs no special rule. All functions are thread-safe.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace pelk {

inline constexpr std::int64_t kNoTime = -1;

/// The arrival time that a store recorded for a message.
struct NotedTime {
    std::int64_t seconds = kNoTime;
    /// Whether `seconds` count in the user's local time instead of UTC.
    bool onWallClock = false;

    friend bool operator==(const NotedTime&, const NotedTime&) = default;
};

/// Parses the separator line of an mbox (RFC 4155): "From jane@example.org Tue Jan  2 03:04:05
/// 2021". Seconds and zone are optional; the year comes before or after the zone. Without a zone
/// the time is local. Ignores the first day of 1970, which programs write for an unknown time.
NotedTime fromLineTime(std::string_view line);

/// Parses the value of a `Date` field (RFC 5322, 3.3). Returns `kNoTime` if it is not a date.
std::int64_t dateFieldTime(const std::string& value);

/// Parses the time after the last semicolon of a `Received` field (RFC 5321, 4.4). Returns
/// `kNoTime` if there is none.
std::int64_t receivedFieldTime(const std::string& value);

/// Returns the number at the start of the name of a Maildir file, or nothing without a number.
std::optional<std::int64_t> maildirNameTime(std::string_view fileName);

/// Converts to the user's time zone. Returns nothing outside of the years 1970 to 9999.
std::optional<LocalTime> localTime(NotedTime time);

}  // namespace pelk
