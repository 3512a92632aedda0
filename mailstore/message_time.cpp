#include "mailstore/message_time.h"

#include <charconv>
#include <chrono>
#include <ctime>

#include "mailstore/gmime_ready.h"

namespace pelk {
namespace {

constexpr std::int64_t kEndOfTime = 253402300800 + 86400;  // the year 10000, in any time zone
constexpr std::size_t kMaxDate = 200;

struct DateTimeUnref {
    void operator()(GDateTime* time) const { g_date_time_unref(time); }
};

LocalTime onWallClock(std::int64_t time) {
    const std::chrono::sys_seconds moment{std::chrono::seconds(time)};
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(moment - day);
    return {int(date.year()),
            static_cast<int>(unsigned(date.month())),
            static_cast<int>(unsigned(date.day())),
            static_cast<int>(clock.hours().count()),
            static_cast<int>(clock.minutes().count()),
            static_cast<int>(clock.seconds().count())};
}

LocalTime inUsersZone(std::int64_t time) {
    const std::time_t seconds = time;
    std::tm local{};
    if (::localtime_r(&seconds, &local) == nullptr)
        return {0};
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
}

}  // namespace

std::int64_t dateFieldTime(const std::string& value) {
    readyGMime();
    const std::string date = value.substr(0, kMaxDate);
    const std::unique_ptr<GDateTime, DateTimeUnref> time(
        g_mime_utils_header_decode_date(date.c_str()));
    return time ? g_date_time_to_unix(time.get()) : kNoTime;
}

std::int64_t receivedFieldTime(const std::string& value) {
    const std::size_t semicolon = value.rfind(';');
    return semicolon == std::string::npos ? kNoTime : dateFieldTime(value.substr(semicolon + 1));
}

std::optional<std::int64_t> maildirNameTime(std::string_view fileName) {
    const std::string_view digits = fileName.substr(0, fileName.find('.'));
    if (digits.empty() || digits.size() == fileName.size() ||
        digits.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    std::int64_t time = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), time);
    return result.ec == std::errc() ? time : kNoTime;
}

std::optional<LocalTime> localTime(NotedTime time) {
    if (time.seconds < 0 || time.seconds > kEndOfTime)
        return std::nullopt;
    const LocalTime result =
        time.onWallClock ? onWallClock(time.seconds) : inUsersZone(time.seconds);
    if (result.year < 1970 || result.year > 9999)
        return std::nullopt;
    return result;
}

}  // namespace pelk
