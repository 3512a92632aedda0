#include "mailstore/mail_text.h"

#include <algorithm>
#include <array>

#include "mailstore/gmime_ready.h"
#include "platform/utf8.h"

namespace pelk {
namespace {

// In bytes, far beyond any real name or subject. Longer text takes the decoder too long.
constexpr std::size_t kMaxText = 4096;

// Windows-1252, bytes 0x80 to 0x9F. The five undefined bytes become control characters, which the
// callers remove.
constexpr std::array<gunichar, 32> kWindows1252 = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

bool isPrintableAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c < 0x7F; });
}

/// Returns whether `c` may appear in a result: no control character, and allowed in XML.
bool isAllowed(gunichar c) {
    return c >= 0x20 && (c < 0x7F || (c >= 0xA0 && isXmlCharacter(c)));
}

void append(std::string& text, gunichar c) {
    std::array<char, 6> bytes{};
    const int length = g_unichar_to_utf8(c, bytes.data());
    text.append(bytes.data(), static_cast<std::size_t>(length));
}

/// Calls `each(character)` for every character of valid UTF-8.
template <typename Function>
void forEachCharacter(const std::string& text, Function each) {
    const char* const end = text.data() + text.size();
    for (const char* at = text.data(); at < end; at = g_utf8_next_char(at))
        each(g_utf8_get_char(at));
}

std::string withSingleBlanks(const std::string& text) {
    std::string result;
    result.reserve(text.size());
    bool blank = false;
    forEachCharacter(text, [&](gunichar c) {
        if (c == ' ' || !isAllowed(c)) {
            blank = true;
            return;
        }
        if (blank && !result.empty())
            result += ' ';
        blank = false;
        append(result, c);
    });
    return result;
}

std::string decodeWords(const std::string& text) {
    readyGMime();
    const GText decoded(g_mime_utils_header_decode_text(nullptr, text.c_str()));
    return decoded ? toUtf8(decoded.get()) : std::string();
}

std::string_view cut(std::string_view text) {
    if (text.size() <= kMaxText)
        return text;
    std::size_t length = kMaxText;
    // Do not cut inside a character.
    while (length > kMaxText - 4 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
        --length;
    return text.substr(0, length);
}

}  // namespace

std::string toUtf8(std::string_view raw) {
    // The validation fails at a NUL; the loop below handles such text.
    if (isPrintableAscii(raw) || g_utf8_validate_len(raw.data(), raw.size(), nullptr) != FALSE)
        return std::string(raw);
    std::string result;
    for (const char c : raw) {
        const auto byte = static_cast<unsigned char>(c);
        append(result, byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80U] : byte);
    }
    return result;
}

std::string decodeText(std::string_view raw) {
    std::string text = toUtf8(cut(raw));
    if (text.find("=?") != std::string::npos)
        text = decodeWords(text);
    return withSingleBlanks(text);
}

std::string cleanAddress(std::string_view raw) {
    std::string text = toUtf8(raw);
    if (isPrintableAscii(text))
        return text;
    std::string result;
    forEachCharacter(text, [&](gunichar c) {
        if (isAllowed(c))
            append(result, c);
    });
    return result;
}

std::string cleanLines(std::string_view raw) {
    std::string result;
    forEachCharacter(toUtf8(raw), [&](gunichar c) {
        if (c == '\n' || c == '\t' || isAllowed(c))
            append(result, c);
    });
    return result;
}

std::string_view trimmed(std::string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of(" \t\r\n"), text.size());
    return text.substr(begin, text.find_last_not_of(" \t\r\n") + 1 - begin);
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && g_ascii_strncasecmp(a.data(), b.data(), a.size()) == 0;
}

std::string foldCase(std::string_view text) {
    const std::string valid = toUtf8(text);
    const GText folded(g_utf8_casefold(valid.data(), static_cast<gssize>(valid.size())));
    return folded.get();
}

}  // namespace pelk
