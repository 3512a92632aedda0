#pragma once
// Numbers as the database document holds them: decimal text, read leniently.

#include <cstdint>
#include <optional>
#include <string_view>

namespace pelk {

/// Contact ids are 16-bit signed integers throughout: 1 to this one.
inline constexpr int kMaxContactId = 32767;

/// The number that the text starts with, after blanks and a sign: "12abc" is 12, "-5" is -5.
/// Empty text and text that starts otherwise are 0.
double readNumber(std::string_view text);

/// The nearest integer, a half going to the even neighbour; values beyond 64 bits go to the limit.
std::int64_t roundToInteger(double number);

/// `readNumber` rounded.
std::int64_t readInteger(std::string_view text);

/// The id that the text reads as; 0, which no contact has, when it does not fit an id.
int readContactId(std::string_view text);

/// The id of which `text` is the plain decimal form, without sign, blanks or leading zeros; only
/// such text is found by a query for an id. Nothing for any other text or a larger number.
std::optional<int> plainContactId(std::string_view text);

}  // namespace pelk
