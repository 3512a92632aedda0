#pragma once
// Turns text of messages into text that can be shown and stored.
//
// `decodeText` and `cleanAddress` return valid UTF-8 without characters that XML 1.0 forbids. All
// functions are thread-safe and never fail.

#include <string>
#include <string_view>

namespace pelk {

/// Returns `raw` if it is valid UTF-8, otherwise converts it from Windows-1252.
std::string toUtf8(std::string_view raw);

/// Returns the readable text of a name, a subject or a file name: decodes encoded words (RFC 2047),
/// turns control characters into blanks, collapses and trims blanks, cuts overlong text.
std::string decodeText(std::string_view raw);

/// Returns `raw` as UTF-8 without control characters.
std::string cleanAddress(std::string_view raw);

/// Returns `raw` as valid UTF-8 whose lines end with "\n", without other control characters than
/// tabs.
std::string cleanLines(std::string_view raw);

/// Returns the text without blanks, tabs and line ends at its ends.
std::string_view trimmed(std::string_view text);

/// Compares two texts. Ignores the case of ASCII letters only.
bool equalsIgnoringCase(std::string_view a, std::string_view b);

/// Returns a key that is equal for texts that differ only in letter case (Unicode case folding).
std::string foldCase(std::string_view text);

}  // namespace pelk
