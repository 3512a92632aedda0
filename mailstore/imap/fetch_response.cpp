#include "mailstore/imap/fetch_response.h"

#include <charconv>
#include <chrono>
#include <string>

#include "mailstore/imap/body_structure.h"
#include "mailstore/imap/imap_faults.h"
#include "mailstore/imap/response_cursor.h"
#include "mailstore/mail_text.h"
#include "mailstore/message_time.h"

namespace pelk {
namespace {

constexpr std::string_view kDateForm = "dd-mmm-yyyy hh:mm:ss +hhmm";
constexpr std::string_view kMonths = "JanFebMarAprMayJunJulAugSepOctNovDec";

/// Returns 0 if there is no number.
int numberIn(std::string_view text) {
    int value = 0;
    text.remove_prefix(text.starts_with(' ') ? 1 : 0);
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/// Returns `kNoTime` if the date is not of the form that RFC 3501 requires.
std::int64_t secondsOf(std::string_view date) {
    if (date.size() != kDateForm.size())
        return kNoTime;
    const auto number = [date](std::size_t at, std::size_t digits) {
        return numberIn(date.substr(at, digits));
    };
    const std::size_t month = kMonths.find(date.substr(3, 3));
    const std::chrono::year_month_day day{std::chrono::year(number(7, 4)),
                                          std::chrono::month(static_cast<unsigned>(
                                              month == std::string_view::npos ? 0 : month / 3 + 1)),
                                          std::chrono::day(static_cast<unsigned>(number(0, 2)))};
    if (!day.ok())
        return kNoTime;
    const int zone = (number(22, 2) * 60 + number(24, 2)) * (date[21] == '-' ? -1 : 1);
    const std::int64_t days = std::chrono::sys_days(day).time_since_epoch().count();
    return ((days * 24 + number(12, 2)) * 60 + number(15, 2) - zone) * 60 + number(18, 2);
}

void readFlags(ResponseCursor& at, FetchedHeader& header) {
    at.require('(');
    for (at.skipBlanks(); !at.take(')'); at.skipBlanks()) {
        const std::string_view flag = at.atom();
        header.deleted = header.deleted || equalsIgnoringCase(flag, "\\Deleted");
        header.draft = header.draft || equalsIgnoringCase(flag, "\\Draft");
    }
}

std::uint32_t readNumber(ResponseCursor& at) {
    const std::string_view digits = at.atom();
    std::uint32_t number = 0;
    if (std::from_chars(digits.data(), digits.data() + digits.size(), number).ec != std::errc())
        throw BrokenAnswer("The mail server's answer has no number where one is required.");
    return number;
}

/// Reads one of the items in the parentheses. Returns whether it is the text.
bool readItem(ResponseCursor& at, FetchedHeader& header) {
    const std::string_view name = at.atom(" [()\r\n");
    const bool isText = at.next() == '[';
    if (isText)
        at.skipSection();
    at.require(' ');
    if (isText)
        header.text = at.string();
    else if (equalsIgnoringCase(name, "UID"))
        header.uid = readNumber(at);
    else if (equalsIgnoringCase(name, "FLAGS"))
        readFlags(at, header);
    else if (equalsIgnoringCase(name, "INTERNALDATE"))
        header.internalDate = secondsOf(at.string());
    else if (equalsIgnoringCase(name, "BODYSTRUCTURE"))
        findCalendars(at, header);
    else
        at.skipValue();
    return isText;
}

}  // namespace

std::optional<FetchedHeader> fetchedHeader(std::string_view response) {
    ResponseCursor at(response);
    at.require('*');
    at.require(' ');
    const char first = at.next();
    if (first < '0' || first > '9')
        return std::nullopt;
    at.atom();
    at.require(' ');
    if (!equalsIgnoringCase(at.atom(), "FETCH"))
        return std::nullopt;
    at.require(' ');
    at.require('(');
    FetchedHeader header;
    bool hasText = false;
    for (at.skipBlanks(); !at.take(')'); at.skipBlanks())
        hasText = readItem(at, header) || hasText;
    at.take('\r');
    at.require('\n');
    return header.uid != 0 && hasText ? std::optional(std::move(header)) : std::nullopt;
}

}  // namespace pelk
