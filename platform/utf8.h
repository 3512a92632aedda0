#pragma once
// UTF-8 that a document can carry, and its other form in files.

#include <cstdint>
#include <string>
#include <string_view>

namespace pelk {

/// True when an XML document may hold the character of that code point (XML 1.0, production 2).
bool isXmlCharacter(std::uint32_t code);

/// True when the text is valid UTF-8 and every character may stand in an XML document.
bool isXmlText(std::string_view text);

/// The text with every byte that is not UTF-8, and every character that XML cannot carry,
/// replaced by U+FFFD, and every control character (tab and line ends among them) by a blank.
std::string cleanText(std::string_view text);

/// Valid UTF-8 as the bytes of a UTF-16 file: little-endian, after a byte order mark.
std::string utf16FileBytes(std::string_view text);

}  // namespace pelk
