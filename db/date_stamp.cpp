#include "db/date_stamp.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>

#include "db/numbers.h"

namespace pelk {
namespace {

constexpr int kSecondsPerDay = 24 * 60 * 60;

/// Seconds on the wall clock, so that equal times of day are whole days apart.
std::int64_t secondsSince1970(const LocalTime& time) {
    using namespace std::chrono;
    const sys_days midnight = year{time.year} / month{static_cast<unsigned>(time.month)} /
                              day{static_cast<unsigned>(time.day)};
    const std::int64_t days = midnight.time_since_epoch().count();
    const std::int64_t minutes = std::int64_t{time.hour} * 60 + time.minute;
    return days * kSecondsPerDay + minutes * 60 + time.second;
}

}  // namespace

std::string formatStamp(const LocalTime& time) {
    std::array<char, 80> text;
    const int length =
        std::snprintf(text.data(), text.size(), "%d-%02d-%02dT%02d:%02d:%02d", time.year,
                      time.month, time.day, time.hour, time.minute, time.second);
    return {text.data(), static_cast<std::size_t>(length)};
}

LocalTime parseStamp(std::string_view stamp) {
    const auto field = [stamp](std::size_t at, std::size_t length) {
        return at < stamp.size() ? static_cast<int>(readInteger(stamp.substr(at, length))) : 0;
    };
    return {field(0, 4), field(5, 2), field(8, 2), field(11, 2), field(14, 2), 0};
}

double ageInDays(std::string_view stamp, const LocalTime& now) {
    const std::int64_t seconds = secondsSince1970(now) - secondsSince1970(parseStamp(stamp));
    return static_cast<double>(seconds) / kSecondsPerDay;
}

}  // namespace pelk
