#include "platform/desktop/qt/text_color.h"

#include <algorithm>
#include <cmath>

namespace pelk {

namespace {

/// The light that a colour gives, from 0 to 1, as the eye weighs it.
double luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

}  // namespace

QColor readableColor(const Color& color, const QColor& background) {
    constexpr double kDark = 0.18;  // half way from black to white for the eye
    constexpr double kReadable = 4.5;
    QColor readable(color.red, color.green, color.blue);
    if (luminance(background) > kDark)
        return readable;
    const auto lighter = [](int part) { return part + (255 - part + 9) / 10; };
    while (readable != Qt::white && contrast(readable, background) < kReadable)
        readable.setRgb(lighter(readable.red()), lighter(readable.green()),
                        lighter(readable.blue()));
    return readable;
}

}  // namespace pelk
