#include "db/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace pelk {
namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

double readNumber(std::string_view text) {
    // Fast path: nearly all numbers of a document are plain and as small as an id.
    if (const std::optional<int> plain = plainContactId(text))
        return *plain;
    const std::size_t start = text.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos)
        return 0;
    text.remove_prefix(start);
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+')
        text.remove_prefix(1);
    // `from_chars` also accepts words such as "inf".
    if (text.empty() || (!isDigit(text.front()) && text.front() != '.'))
        return 0;
    double number = 0;
    const auto read =
        std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    if (read.ec == std::errc::result_out_of_range)
        number = std::numeric_limits<double>::max();
    return negative ? -number : number;
}

std::int64_t roundToInteger(double number) {
    constexpr double limit = 9.2e18;
    if (number >= limit)
        return std::numeric_limits<std::int64_t>::max();
    if (number <= -limit)
        return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(std::nearbyint(number));
}

std::int64_t readInteger(std::string_view text) {
    return roundToInteger(readNumber(text));
}

int readContactId(std::string_view text) {
    if (const std::optional<int> plain = plainContactId(text))
        return *plain;
    const std::int64_t number = readInteger(text);
    return number >= 1 && number <= kMaxContactId ? static_cast<int>(number) : 0;
}

std::optional<int> plainContactId(std::string_view text) {
    if (text.empty() || text.size() > 5 || (text.front() == '0' && text.size() > 1))
        return std::nullopt;
    int number = 0;
    for (const char c : text) {
        if (!isDigit(c))
            return std::nullopt;
        number = number * 10 + (c - '0');
    }
    return number <= kMaxContactId ? std::optional(number) : std::nullopt;
}

std::optional<int> wholeNumber(std::string_view text, int most) {
    int number = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (fault != std::errc() || end != text.data() + text.size() || number < 1 || number > most)
        return std::nullopt;
    return number;
}

}  // namespace pelk
