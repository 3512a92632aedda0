#pragma once
// Converts twips to pixels and back.

#include <windows.h>

#include "platform/controls.h"

namespace pelk {

/// Converting pixels to twips and back is exact; converting twips to pixels and back is off by half
/// a pixel at most. It rounds edges rather than lengths, so that rectangles that touch in twips
/// touch on the screen.
class TwipScale {
 public:
    explicit TwipScale(double pixelsPerTwip) : pixelsPerTwip_(pixelsPerTwip) {}

    /// Returns the scale for the font: 1440 twips to the inch, or larger if a button 250 twips high
    /// needs it.
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
