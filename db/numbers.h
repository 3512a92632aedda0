#pragma once
// Numbers in the database document: decimal text, read leniently.

#include <cstdint>
#include <optional>
#include <string_view>

namespace pelk {

/// The largest contact id. Ids start at 1 and fit a signed 16-bit integer.
inline constexpr int kMaxContactId = 32767;

/// Returns the number at the start of the text, after blanks and an optional sign: "12abc" is 12,
/// "-5" is -5. Returns 0 when there is none.
double readNumber(std::string_view text);

/// Rounds to the nearest integer, halves to even, and clamps to 64 bits.
std::int64_t roundToInteger(double number);

/// Returns `readNumber`, rounded.
std::int64_t readInteger(std::string_view text);

/// Returns the text's number as an id; 0, which no contact has, when it is out of range.
int readContactId(std::string_view text);

/// Returns the id if `text` is its plain decimal form, without sign, blanks or leading zeros, and
/// nothing otherwise. Only text in that form matches a query for an id.
std::optional<int> plainContactId(std::string_view text);

/// Returns the number if the whole text is one from 1 to `most`.
std::optional<int> wholeNumber(std::string_view text, int most);

}  // namespace pelk
