#pragma once
// What all windows of the toolkit look like: the user's font, the scale of it, the drawings.

#include <windows.h>
// The line above comes first.
#include <commctrl.h>

#include "platform/windows/controls/twip_scale.h"

namespace pelk {

/// Owns the font and the pictures. Outlives the windows that use them.
class Look {
 public:
    Look();
    Look(const Look&) = delete;
    Look& operator=(const Look&) = delete;
    ~Look();

    /// The font in which Windows shows messages.
    HFONT font() const { return font_; }
    const TwipScale& scale() const { return scale_; }
    /// The images of trees; the position in the list is the value of the `TreeImage`.
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
