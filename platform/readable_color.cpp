#include "platform/readable_color.h"

#include <algorithm>
#include <cmath>

namespace pelk {
namespace {

/// The light that a colour gives, from 0 to 1, as the eye weighs it.
double luminance(const Color& color) {
    const auto linear = [](std::uint8_t value) {
        const double part = value / 255.0;
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

double contrast(const Color& one, const Color& other) {
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

}  // namespace

Color readableColor(const Color& color, const Color& background) {
    constexpr double kDark = 0.18;  // half way from black to white for the eye
    constexpr double kReadable = 4.5;
    constexpr Color kWhite{255, 255, 255};
    if (luminance(background) > kDark)
        return color;
    const auto lighter = [](std::uint8_t part) {
        return static_cast<std::uint8_t>(part + (255 - part + 9) / 10);
    };
    Color readable = color;
    while (readable != kWhite && contrast(readable, background) < kReadable)
        readable = {lighter(readable.red), lighter(readable.green), lighter(readable.blue)};
    return readable;
}

}  // namespace pelk
