#pragma once
// When a message came into its store, read from what mail programs left behind.
//
// A time is given in seconds since 1970; a negative one stands for none that is of use.
//
// What is told without a zone stays the wall clock's reading that it is: whoever wrote it lives in
// the user's time zone, and readings of that clock are all that times are compared by. So no hour
// that the clock shows twice, or never, needs a decision.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace pelk {

inline constexpr std::int64_t kNoTime = -1;

/// When a store noted that a message came.
struct NotedTime {
    std::int64_t seconds = kNoTime;
    /// Whether these seconds passed on the wall clock of the user's time zone, rather than in UTC.
    bool onWallClock = false;

    friend bool operator==(const NotedTime&, const NotedTime&) = default;
};

/// The time in the line that parts messages in an mbox: "From jane@example.org Tue Jan  2 03:04:05
/// 2021", with or without seconds and zone, the year before or behind the zone. Without a zone it
/// is on the wall clock. The first day of 1970 is no time: programs that do not know one
/// write 0.
NotedTime fromLineTime(std::string_view line);

/// The time of a `Date` field, or `kNoTime`.
std::int64_t dateFieldTime(const std::string& value);

/// The time that stands behind the last semicolon of a `Received` field (RFC 5321, 4.4), or
/// `kNoTime`.
std::int64_t receivedFieldTime(const std::string& value);

/// The number that the name of a Maildir file begins with; nothing when it begins with none.
std::optional<std::int64_t> maildirNameTime(std::string_view fileName);

/// In the user's time zone. Nothing outside of the years 1970 to 9999.
std::optional<LocalTime> localTime(NotedTime time);

}  // namespace pelk
