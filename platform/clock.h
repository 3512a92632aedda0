#pragma once
// The user's local time.

#include <compare>

namespace pelk {

/// A wall-clock reading in the user's time zone. Months and days count from 1, hours run 0..23.
struct LocalTime {
    int year = 1970;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;

    /// Earlier is less.
    // clang-tidy 14 mistakes the 0 in the code that the compiler generates for a null pointer.
    // NOLINTNEXTLINE(modernize-use-nullptr)
    friend auto operator<=>(const LocalTime&, const LocalTime&) = default;
};

class Clock {
 public:
    virtual ~Clock() = default;
    virtual LocalTime now() = 0;
};

}  // namespace pelk
