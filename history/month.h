#pragma once
// Days and months of the history, as integers that sort by time.

#include <string>

#include "platform/clock.h"

namespace pelk {

/// A day as year * 10000 + month * 100 + day; 0 for none.
using Day = int;
/// A month as year * 12 + month - 1.
using Month = int;

Day dayOf(const LocalTime& time);
Month monthOf(Day day);
/// Returns the day as 2026-11-22; an empty text for none.
std::string dayText(Day day);
/// Returns the month as 2026-11.
std::string monthText(Month month);
/// Returns the day that many months before; the last day of its month where that is shorter.
Day monthsBefore(Day day, int months);

}  // namespace pelk
