#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>

#include "mailstore/mail_text.h"
#include "mailstore/message_time.h"

namespace pelk {
namespace {

constexpr std::int64_t kSecondsPerDay = 86400;
// In days since 1970. Second 0 is before this day in every zone.
constexpr std::int64_t kFirstDay = 1;
constexpr std::size_t kMaxWords = 64;
constexpr std::string_view kSeparators = " \t\r\n,";

/// The words of a line. A word beyond the last is empty.
class Words {
 public:
    explicit Words(std::string_view line) {
        std::size_t begin = line.find_first_not_of(kSeparators);
        while (count_ < kMaxWords && begin != std::string_view::npos) {
            const std::size_t end = std::min(line.find_first_of(kSeparators, begin), line.size());
            words_[count_++] = line.substr(begin, end - begin);
            begin = line.find_first_not_of(kSeparators, end);
        }
    }
    std::size_t count() const { return count_; }
    std::string_view operator[](std::size_t i) const {
        return i < count_ ? words_[i] : std::string_view();
    }

 private:
    std::array<std::string_view, kMaxWords> words_;
    std::size_t count_ = 0;
};

struct NamedNumber {
    std::string_view name;
    int number;
};

constexpr NamedNumber kMonths[] = {{"Jan", 1}, {"Feb", 2},  {"Mar", 3},  {"Apr", 4},
                                   {"May", 5}, {"Jun", 6},  {"Jul", 7},  {"Aug", 8},
                                   {"Sep", 9}, {"Oct", 10}, {"Nov", 11}, {"Dec", 12}};

// In hours east of Greenwich. Any other word is not a zone.
constexpr NamedNumber kZones[] = {
    {"GMT", 0},  {"UTC", 0},  {"UT", 0},   {"EST", -5}, {"EDT", -4}, {"CST", -6}, {"CDT", -5},
    {"MST", -7}, {"MDT", -6}, {"PST", -8}, {"PDT", -7}, {"BST", 1},  {"WEST", 1}, {"CET", 1},
    {"MET", 1},  {"CEST", 2}, {"MEST", 2}, {"EET", 2},  {"EEST", 3}, {"MSK", 3},  {"JST", 9}};

template <std::size_t size>
std::optional<int> named(const NamedNumber (&table)[size], std::string_view name) {
    for (const NamedNumber& entry : table)
        if (equalsIgnoringCase(entry.name, name))
            return entry.number;
    return std::nullopt;
}

/// Returns the value of a text that is `least` to `most` digits long.
std::optional<int> number(std::string_view text, std::size_t least, std::size_t most) {
    if (text.size() < least || text.size() > most ||
        text.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    int value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/// Parses "3:04" or "03:04:05" to seconds since midnight.
std::optional<int> timeOfDay(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos)
        return std::nullopt;
    const std::string_view rest = text.substr(colon + 1);
    const auto hours = number(text.substr(0, colon), 1, 2);
    const auto minutes = number(rest.substr(0, 2), 2, 2);
    const bool brief = rest.size() == 2;
    const auto seconds =
        brief ? 0 : number(rest.substr(std::min<std::size_t>(3, rest.size())), 2, 2);
    if (!hours || !minutes || !seconds || (!brief && rest[2] != ':') || *hours > 23 ||
        *minutes > 59 || *seconds > 60)
        return std::nullopt;
    return *hours * 3600 + *minutes * 60 + *seconds;
}

/// Parses "+0130" to seconds east of Greenwich.
std::optional<int> zoneOffset(std::string_view text) {
    const auto digits = number(text.substr(1), 4, 4);
    if (!digits || *digits % 100 > 59 || *digits > 1400)
        return std::nullopt;
    const int seconds = *digits / 100 * 3600 + *digits % 100 * 60;
    return text.front() == '-' ? -seconds : seconds;
}

std::optional<int> yearOf(std::string_view text) {
    if (const auto brief = number(text, 2, 2))
        return *brief < 70 ? 2000 + *brief : 1900 + *brief;
    return number(text, 4, 4);
}

/// A date whose parts may be unknown.
struct Date {
    std::optional<int> day;
    std::optional<int> month;
    std::optional<int> year;
};

/// Parses the date that ends before word `at`: "Jan 2", "2 Jan" or "2 Jan 2021".
Date dateBefore(const Words& words, std::size_t at) {
    if (const auto month = named(kMonths, words[at - 2])) {
        if (const auto day = at >= 3 ? number(words[at - 3], 1, 2) : std::nullopt;
            day && number(words[at - 1], 4, 4))
            return {day, month, yearOf(words[at - 1])};
        return {number(words[at - 1], 1, 2), month, std::nullopt};
    }
    return {number(words[at - 2], 1, 2), named(kMonths, words[at - 1]), std::nullopt};
}

/// Combines `date` and `secondOfDay` with the year and zone in the words from `at` on.
NotedTime timeWith(Date date, const Words& words, std::size_t at, int secondOfDay) {
    std::optional<int> offset;
    for (; at < words.count(); ++at) {
        const std::string_view word = words[at];
        if (word.front() == '+' || word.front() == '-') {
            offset = zoneOffset(word);
            if (!offset)
                return {};
        } else if (!date.year && yearOf(word)) {
            date.year = yearOf(word);
        } else if (const auto hours = named(kZones, word)) {
            offset = *hours * 3600;
        }
    }
    if (!date.year)
        return {};
    const std::chrono::year_month_day day{std::chrono::year(*date.year),
                                          std::chrono::month(static_cast<unsigned>(*date.month)),
                                          std::chrono::day(static_cast<unsigned>(*date.day))};
    if (!day.ok())
        return {};
    const std::int64_t days = std::chrono::sys_days(day).time_since_epoch().count();
    if (days < kFirstDay)
        return {};
    return {days * kSecondsPerDay + secondOfDay - offset.value_or(0), !offset};
}

}  // namespace

NotedTime fromLineTime(std::string_view line) {
    const Words words(line);
    // The sender may be any text, so the search is for a time of day after a day and a month.
    for (std::size_t i = 2; i < words.count(); ++i) {
        if (const auto secondOfDay = timeOfDay(words[i])) {
            const Date date = dateBefore(words, i);
            if (date.day && date.month)
                return timeWith(date, words, i + 1, *secondOfDay);
        }
    }
    return {};
}

}  // namespace pelk
