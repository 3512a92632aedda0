#include "map/text_width.h"

#include <algorithm>
#include <cstdint>

#include "platform/utf8.h"

namespace pelk {
namespace {

constexpr double kWide = 1.05;
constexpr double kLetter = 0.75;

/// Whether the code point draws above or below the one before it.
bool isMark(std::uint32_t code) {
    return (code >= 0x300 && code < 0x370) || (code >= 0x200B && code <= 0x200F) ||
           (code >= 0xFE00 && code <= 0xFE0F);
}

double widthOfAscii(char character) {
    constexpr std::string_view narrow = " .,:;'|!()[]iljftr/-\"`";
    constexpr std::string_view broad = "mwMW@%";
    if (narrow.find(character) != std::string_view::npos)
        return 0.43;
    if (broad.find(character) != std::string_view::npos)
        return 1.02;
    return character >= 'A' && character <= 'Z' ? kLetter : 0.65;
}

double widthOfCode(std::uint32_t code) {
    if (code < 0x80)
        return widthOfAscii(static_cast<char>(code));
    if (isMark(code))
        return 0;
    // From here on, most scripts have square characters.
    return code < 0x1100 ? kLetter : kWide;
}

}  // namespace

double estimatedWidth(std::string_view text) {
    double width = 0;
    while (!text.empty())
        width += widthOfCode(takeCode(text));
    return width;
}

std::string shortenedTo(double width, std::string_view text, const TextWidth& widthOf) {
    if (widthOf(text) <= width)
        return std::string(text);
    const std::string ellipsis = "\u2026";
    std::string shortened;
    for (std::string_view rest = text; !rest.empty();) {
        takeCode(rest);
        const std::string_view start = text.substr(0, text.size() - rest.size());
        std::string longer = std::string(start) + ellipsis;
        if (widthOf(longer) > width)
            break;
        shortened = std::move(longer);
    }
    return shortened.empty() ? ellipsis : shortened;
}

}  // namespace pelk
