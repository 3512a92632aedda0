#include "platform/utf8.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace pelk {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

struct Character {
    std::size_t length = 1;
    /// The code point; meaningless when the bytes are not valid UTF-8.
    std::uint32_t code = 0;
    bool valid = false;
};

bool isSurrogate(std::uint32_t code) {
    return code >= 0xD800 && code <= 0xDFFF;
}

/// Decodes the first character of `text`, which is not empty. An invalid byte counts as a character
/// of length 1. Overlong forms, surrogates and codes above U+10FFFF are invalid (RFC 3629).
Character readCharacter(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80)
        return {1, lead, true};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length)
        return {};
    std::uint32_t code = lead & (0x7FU >> length);
    for (std::size_t at = 1; at < length; ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        if ((byte & 0xC0U) != 0x80U)
            return {};
        code = code << 6U | (byte & 0x3FU);
    }
    constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (code < smallest[length] || code > 0x10FFFF || isSurrogate(code))
        return {};
    return {length, code, true};
}

bool isControl(std::uint32_t code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

/// Returns the number of printable ASCII characters at the start of the text.
std::size_t plainLength(std::string_view text) {
    const auto isPlain = [](unsigned char byte) { return byte >= 0x20 && byte < 0x7F; };
    // Tests whole blocks first: compilers vectorize an inner loop that has no exit.
    constexpr std::size_t block = 64;
    std::size_t length = 0;
    for (; length + block <= text.size(); length += block) {
        unsigned char plain = 1;
        for (const char byte : text.substr(length, block))
            plain &= isPlain(static_cast<unsigned char>(byte));
        if (plain == 0)
            break;
    }
    while (length < text.size() && isPlain(static_cast<unsigned char>(text[length])))
        ++length;
    return length;
}

}  // namespace

bool isXmlCharacter(std::uint32_t code) {
    if (code < 0x20)
        return code == '\t' || code == '\n' || code == '\r';
    return !isSurrogate(code) && code != 0xFFFE && code != 0xFFFF && code <= 0x10FFFF;
}

bool isXmlText(std::string_view text) {
    while (true) {
        // Most documents consist of these characters.
        text.remove_prefix(plainLength(text));
        if (text.empty())
            return true;
        const Character character = readCharacter(text);
        if (!character.valid || !isXmlCharacter(character.code))
            return false;
        text.remove_prefix(character.length);
    }
}

std::string cleanText(std::string_view text) {
    std::string clean;
    clean.reserve(text.size());
    while (true) {
        const std::size_t plain = plainLength(text);
        clean += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty())
            return clean;
        const Character character = readCharacter(text);
        if (character.valid && isControl(character.code))
            clean += ' ';
        else if (!character.valid || !isXmlCharacter(character.code))
            clean += kReplacement;
        else
            clean += text.substr(0, character.length);
        text.remove_prefix(character.length);
    }
}

bool turnsDirection(std::uint32_t code) {
    return (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

std::string displayText(std::string_view text) {
    const std::string clean = cleanText(text);
    std::string shown;
    shown.reserve(clean.size());
    for (std::string_view rest = clean; !rest.empty();) {
        const std::string_view before = rest;
        const bool turns = turnsDirection(takeCode(rest));
        shown += turns ? kReplacement : before.substr(0, before.size() - rest.size());
    }
    return shown;
}

std::uint32_t takeCode(std::string_view& text) {
    const Character character = readCharacter(text);
    text.remove_prefix(character.length);
    return character.valid ? character.code : 0xFFFD;
}

std::string utf16FileBytes(std::string_view text) {
    std::string bytes;
    bytes.reserve(2 * text.size() + 2);
    const auto append = [&bytes](std::uint32_t unit) {
        bytes += static_cast<char>(unit & 0xFFU);
        bytes += static_cast<char>(unit >> 8U);
    };
    append(0xFEFF);
    while (!text.empty()) {
        const Character character = readCharacter(text);
        if (character.code < 0x10000) {
            append(character.code);
        } else {
            append(0xD800 + ((character.code - 0x10000) >> 10U));
            append(0xDC00 + ((character.code - 0x10000) & 0x3FFU));
        }
        text.remove_prefix(character.length);
    }
    return bytes;
}

}  // namespace pelk
