#include "history/month.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace pelk {
namespace {

int daysIn(int year, int month) {
    constexpr std::array<int, 12> kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool isLeapYear = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && isLeapYear ? 29 : kDays[static_cast<std::size_t>(month) - 1];
}

/// Writes "2026-11" or "2026-11-22".
std::string textOf(const char* format, int year, int month, int day) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), format, year, month, day);
    return text.data();
}

}  // namespace

Day dayOf(const LocalTime& time) {
    return time.year * 10000 + time.month * 100 + time.day;
}

Month monthOf(Day day) {
    return day / 10000 * 12 + day / 100 % 100 - 1;
}

std::string dayText(Day day) {
    if (day == 0)
        return {};
    return textOf("%04d-%02d-%02d", day / 10000, day / 100 % 100, day % 100);
}

std::string monthText(Month month) {
    return textOf("%04d-%02d", month / 12, month % 12 + 1, 0);
}

Day monthsBefore(Day day, int months) {
    const Month month = monthOf(day) - months;
    const int year = month / 12;
    const int monthOfYear = month % 12 + 1;
    return dayOf({year, monthOfYear, std::min(day % 100, daysIn(year, monthOfYear))});
}

}  // namespace pelk
