#include "db/date_stamp.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "db/numbers.h"

namespace pelk {
namespace {

constexpr int kSecondsPerDay = 24 * 60 * 60;

/// Counts wall-clock seconds, so that equal times of day are whole days apart.
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
    std::string stamp = std::to_string(time.year);
    for (const auto& [mark, number] :
         {std::pair('-', time.month), std::pair('-', time.day), std::pair('T', time.hour),
          std::pair(':', time.minute), std::pair(':', time.second)}) {
        stamp += mark;
        stamp += static_cast<char>('0' + number / 10);
        stamp += static_cast<char>('0' + number % 10);
    }
    return stamp;
}

LocalTime parseStamp(std::string_view stamp) {
    const auto field = [stamp](std::size_t at, std::size_t length) {
        return at < stamp.size() ? static_cast<int>(readInteger(stamp.substr(at, length))) : 0;
    };
    return {field(0, 4), field(5, 2), field(8, 2), field(11, 2), field(14, 2), 0};
}

LocalTime earlier(const LocalTime& time, int seconds) {
    const std::chrono::sys_seconds moment{std::chrono::seconds(secondsSince1970(time) - seconds)};
    const auto midnight = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day day(midnight);
    const std::chrono::hh_mm_ss clock(moment - midnight);
    return {int(day.year()),
            static_cast<int>(unsigned(day.month())),
            static_cast<int>(unsigned(day.day())),
            static_cast<int>(clock.hours().count()),
            static_cast<int>(clock.minutes().count()),
            static_cast<int>(clock.seconds().count())};
}

bool isStamp(std::string_view text) {
    constexpr std::string_view form = "dddd-dd-ddTdd:dd:dd";
    if (text.size() != form.size())
        return false;
    for (std::size_t at = 0; at < form.size(); ++at) {
        const bool isDigit = text[at] >= '0' && text[at] <= '9';
        if (form[at] == 'd' ? !isDigit : text[at] != form[at])
            return false;
    }
    const LocalTime time = parseStamp(text);
    const std::chrono::year_month_day day{std::chrono::year(time.year),
                                          std::chrono::month(static_cast<unsigned>(time.month)),
                                          std::chrono::day(static_cast<unsigned>(time.day))};
    // Second 60 is a leap second, which some systems report.
    return day.ok() && time.hour < 24 && time.minute < 60 && readInteger(text.substr(17)) <= 60;
}

double ageInDays(std::string_view stamp, const LocalTime& now) {
    const std::int64_t seconds = secondsSince1970(now) - secondsSince1970(parseStamp(stamp));
    return static_cast<double>(seconds) / kSecondsPerDay;
}

}  // namespace pelk
