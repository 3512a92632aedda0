#pragma once
// Twips to pixels and back: the one place where they are converted.

#include <windows.h>

#include "platform/controls.h"

namespace pelk {

/// Pixels taken to twips and back are the same pixels. Twips taken to pixels and back differ by
/// half a pixel at most. Edges are rounded, not lengths, so that what touches in twips touches on
/// the screen.
class TwipScale {
 public:
    explicit TwipScale(double pixelsPerTwip) : pixelsPerTwip_(pixelsPerTwip) {}

    /// The scale for text in that font: 1440 twips to the inch, or as many more pixels as it takes
    /// for a row of 250 twips to hold a push button.
    static TwipScale ofFont(HFONT font);

    int pixels(int twips) const;
    int twips(int pixels) const;
    SIZE pixels(Size twips) const { return {pixels(twips.width), pixels(twips.height)}; }
    Size twips(SIZE pixels) const {
        return {twips(static_cast<int>(pixels.cx)), twips(static_cast<int>(pixels.cy))};
    }
    RECT pixels(const Rect& twips) const;
    Rect twips(const RECT& pixels) const;

 private:
    double pixelsPerTwip_;
};

}  // namespace pelk
