#pragma once
// Checks and cleans UTF-8 for XML documents, and converts it to UTF-16.

#include <cstdint>
#include <string>
#include <string_view>

namespace pelk {

/// Whether an XML document may contain the code point (XML 1.0, production 2).
bool isXmlCharacter(std::uint32_t code);

/// Whether the text is valid UTF-8 and an XML document may contain every character.
bool isXmlText(std::string_view text);

/// Replaces invalid UTF-8 bytes and characters that XML does not allow by U+FFFD, and control
/// characters, tabs and line ends among them, by a space.
std::string cleanText(std::string_view text);

/// Whether the code point embeds, overrides or isolates a writing direction (UAX #9), so that text
/// looks like another one.
bool turnsDirection(std::uint32_t code);

/// Returns `cleanText` with U+FFFD for characters that change the writing direction: one line that
/// other programs show as it is.
std::string displayText(std::string_view text);

/// Removes the first character of a text that is not empty, and returns its code point; U+FFFD for
/// an invalid byte.
std::uint32_t takeCode(std::string_view& text);

/// Converts valid UTF-8 to the bytes of a UTF-16 file: little-endian, after a byte order mark.
std::string utf16FileBytes(std::string_view text);

}  // namespace pelk
