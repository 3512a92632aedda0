#pragma once
// What all windows share: the user's font, its scale, the images.

#include <windows.h>
// Requires the include above.
#include <commctrl.h>

#include "platform/windows/controls/twip_scale.h"

namespace pelk {

/// Returns the font in which Windows shows messages. The caller destroys it.
HFONT createMessageFont();

/// Owns the font and the images. Must outlive the windows that use them.
class Look {
 public:
    Look();
    Look(const Look&) = delete;
    Look& operator=(const Look&) = delete;
    ~Look();

    /// Returns the font in which Windows shows messages.
    HFONT font() const { return font_; }
    const TwipScale& scale() const { return scale_; }
    /// Returns the images of trees; the position in the list is the value of the `TreeImage`.
    HIMAGELIST treeImages() const { return treeImages_; }
    HICON largeIcon() const { return largeIcon_; }
    HICON smallIcon() const { return smallIcon_; }

 private:
    HFONT font_;
    TwipScale scale_;
    HIMAGELIST treeImages_;
    HICON largeIcon_;
    HICON smallIcon_;
};

}  // namespace pelk
