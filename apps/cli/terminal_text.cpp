#include "apps/cli/terminal_text.h"

#include <cstddef>
#include <cstdint>
#include <iostream>

#include "platform/utf8.h"

namespace pelk {
namespace {

bool isObeyed(std::uint32_t code) {
    return (code >= 0x7F && code < 0xA0) || turnsDirection(code);
}

/// Returns the code point at that position of the UTF-8 text, decoded as far as `isObeyed` needs.
std::uint32_t codeAt(std::string_view utf8, std::size_t at) {
    const auto byte = [utf8, at](std::size_t offset) -> std::uint32_t {
        return at + offset < utf8.size() ? static_cast<unsigned char>(utf8[at + offset]) : 0;
    };
    if (byte(0) == 0xC2)
        return byte(1);
    if (byte(0) == 0xE2)
        return 0x2000 | (byte(1) & 0x3FU) << 6U | (byte(2) & 0x3FU);
    return byte(0) < 0x80 ? byte(0) : 0;
}

/// Replaces each character that a terminal interprets, except C0 controls.
template <typename Replace>
std::string replaceObeyed(std::string_view utf8, const Replace& replace) {
    std::string text;
    text.reserve(utf8.size());
    std::size_t at = 0;
    while (at < utf8.size()) {
        const std::uint32_t code = codeAt(utf8, at);
        if (!isObeyed(code)) {
            text += utf8[at++];
            continue;
        }
        text += replace(code);
        at += code < 0x80 ? 1 : code < 0x800 ? 2 : 3;
    }
    return text;
}

}  // namespace

std::string terminalText(std::string_view text) {
    return displayText(text);
}

std::string escapedForJson(std::string_view json) {
    return replaceObeyed(json, [](std::uint32_t code) {
        std::ostringstream escape;
        escape << "\\u" << std::hex << (code | 0x10000U);
        return escape.str().erase(2, 1);
    });
}

std::string escapedForXml(std::string_view xml) {
    return replaceObeyed(xml, [](std::uint32_t code) { return "&#" + std::to_string(code) + ";"; });
}

void tell(std::string_view message) {
    Line(std::cerr) << "pelk: " << message;
}

}  // namespace pelk
