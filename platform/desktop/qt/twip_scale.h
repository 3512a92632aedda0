#pragma once
// Converts twips to pixels and back.

#include <QRect>
#include <QSize>

#include "platform/controls.h"

namespace pelk {

/// Converting pixels to twips and back is exact; converting twips to pixels and back is off by half
/// a pixel at most. It rounds edges rather than lengths, so that rectangles that touch in twips
/// touch on the screen.
class TwipScale {
 public:
    explicit TwipScale(double pixelsPerTwip) : pixelsPerTwip_(pixelsPerTwip) {}

    /// Returns the scale for the application's font: 1440 twips to the inch, or larger if a button
    /// 250 twips high needs it. Requires a QApplication.
    static TwipScale ofApplication();

    int pixels(int twips) const;
    int twips(int pixels) const;
    QSize pixels(Size twips) const { return {pixels(twips.width), pixels(twips.height)}; }
    Size twips(QSize pixels) const { return {twips(pixels.width()), twips(pixels.height())}; }
    QRect pixels(const Rect& twips) const;
    Rect twips(const QRect& pixels) const;

 private:
    double pixelsPerTwip_;
};

}  // namespace pelk
