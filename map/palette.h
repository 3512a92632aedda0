#pragma once
// The colours of pictures.

#include <cstdint>

#include "platform/tree_model.h"

namespace pelk {

struct Palette {
    Color background;
    Color text;
    /// Links between groups, and guide rings.
    Color line;
    bool isDark = false;

    /// Returns the colour of a group: the first groups have colours of their own that people with
    /// colour blindness can tell apart (Okabe and Ito, "Color universal design", 2008), then two
    /// more; all others are grey.
    Color ofGroup(std::uint32_t group) const;
};

/// For light and for dark windows; files use the light one.
Palette lightPalette();
Palette darkPalette();

/// For a window with the user's colours, light or dark.
Palette paletteOn(const Color& background, const Color& text);

}  // namespace pelk
