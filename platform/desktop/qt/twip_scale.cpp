#include "platform/desktop/qt/twip_scale.h"

#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace pelk {

TwipScale TwipScale::ofApplication() {
    constexpr double kTwipsPerInch = 1440;
    constexpr double kButtonRow = 250;
    QPushButton button("OK");
    button.setAutoDefault(true);
    button.ensurePolished();
    const double nominal = QGuiApplication::primaryScreen()->logicalDotsPerInchY() / kTwipsPerInch;
    return TwipScale(std::max(nominal, button.sizeHint().height() / kButtonRow));
}

int TwipScale::pixels(int twips) const {
    return static_cast<int>(std::lround(twips * pixelsPerTwip_));
}

int TwipScale::twips(int pixels) const {
    return static_cast<int>(std::lround(pixels / pixelsPerTwip_));
}

QRect TwipScale::pixels(const Rect& twips) const {
    const int left = pixels(twips.left);
    const int top = pixels(twips.top);
    return {left, top, pixels(twips.left + twips.width) - left,
            pixels(twips.top + twips.height) - top};
}

Rect TwipScale::twips(const QRect& pixels) const {
    const int left = twips(pixels.x());
    const int top = twips(pixels.y());
    return {left, top, twips(pixels.x() + pixels.width()) - left,
            twips(pixels.y() + pixels.height()) - top};
}

}  // namespace pelk
