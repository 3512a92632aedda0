#include "platform/readable_color.h"

#include <algorithm>
#include <cmath>

namespace pelk {
namespace {

constexpr double kMinimumContrast = 4.5;

/// The relative luminance of WCAG 2, from 0 for black to 1 for white.
double relativeLuminance(const Color& color) {
    const auto linear = [](std::uint8_t value) {
        const double part = value / 255.0;
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

/// Returns the value a tenth of the way to `end`, and at least one step nearer.
std::uint8_t towards(std::uint8_t value, std::uint8_t end) {
    return static_cast<std::uint8_t>(value < end ? value + (end - value + 9) / 10
                                                 : value - (value - end + 9) / 10);
}

}  // namespace

double contrastRatio(const Color& one, const Color& other) {
    const auto [dark, light] = std::minmax({relativeLuminance(one), relativeLuminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

Color readableColor(const Color& color, const Color& background) {
    // The luminance whose contrast ratio with black is about that with white.
    constexpr double kMiddleLuminance = 0.18;
    constexpr Color kBlack{0, 0, 0};
    constexpr Color kWhite{255, 255, 255};
    if (background == kWhite)
        return color;
    const Color end = relativeLuminance(background) > kMiddleLuminance ? kBlack : kWhite;
    Color readable = color;
    while (readable != end && contrastRatio(readable, background) < kMinimumContrast)
        readable = {towards(readable.red, end.red), towards(readable.green, end.green),
                    towards(readable.blue, end.blue)};
    return readable;
}

Color fadedColor(const Color& text, const Color& background) {
    for (int percent = 50; percent > 0; --percent) {
        const Color faded = mixedColor(text, background, percent);
        if (contrastRatio(faded, background) >= kMinimumContrast)
            return faded;
    }
    return text;
}

Color mixedColor(const Color& color, const Color& other, int percent) {
    const auto mixed = [percent](std::uint8_t part, std::uint8_t otherPart) {
        return static_cast<std::uint8_t>((part * (100 - percent) + otherPart * percent) / 100);
    };
    return {mixed(color.red, other.red), mixed(color.green, other.green),
            mixed(color.blue, other.blue)};
}

}  // namespace pelk
