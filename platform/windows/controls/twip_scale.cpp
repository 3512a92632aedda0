#include "platform/windows/controls/twip_scale.h"

#include <algorithm>
#include <cmath>

#include "platform/windows/controls/screen_dc.h"

namespace pelk {

TwipScale TwipScale::ofFont(HFONT font) {
    constexpr double kTwipsPerInch = 1440;
    constexpr double kButtonRow = 250;
    // The factor leaves room for the button's edge, the focus rectangle and some space.
    constexpr double kButtonPerText = 1.5;
    const ScreenDc dc(font);
    TEXTMETRICW text = {};
    GetTextMetricsW(dc.get(), &text);
    const double nominal = GetDeviceCaps(dc.get(), LOGPIXELSY) / kTwipsPerInch;
    return TwipScale(std::max(nominal, std::ceil(text.tmHeight * kButtonPerText) / kButtonRow));
}

int TwipScale::pixels(int twips) const {
    return static_cast<int>(std::lround(twips * pixelsPerTwip_));
}

int TwipScale::twips(int pixels) const {
    return static_cast<int>(std::lround(pixels / pixelsPerTwip_));
}

RECT TwipScale::pixels(const Rect& twips) const {
    return {pixels(twips.left), pixels(twips.top), pixels(twips.left + twips.width),
            pixels(twips.top + twips.height)};
}

Rect TwipScale::twips(const RECT& pixels) const {
    const int left = twips(static_cast<int>(pixels.left));
    const int top = twips(static_cast<int>(pixels.top));
    return {left, top, twips(static_cast<int>(pixels.right)) - left,
            twips(static_cast<int>(pixels.bottom)) - top};
}

}  // namespace pelk
