#pragma once
// Moves and stretches the controls of a form when its window has another size than designed: larger
// by the user, or smaller on a small screen.

#include <vector>

#include "platform/controls.h"
#include "platform/form_sizes.h"

namespace pelk {

/// For each of a control's bounds: 1 if it grows by as much as the window, 0 if it is fixed.
struct Anchor {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// Stretches in both directions.
inline constexpr Anchor kAnchorFill{0, 0, 1, 1};
/// Stays at the top or the bottom and stretches in width.
inline constexpr Anchor kAnchorTop{0, 0, 1, 0};
inline constexpr Anchor kAnchorBottom{0, 1, 1, 0};
/// Stays in the corner with its size.
inline constexpr Anchor kAnchorBottomRight{1, 1, 0, 0};

class FormLayout {
 public:
    /// Gives the window the inner area `design`, in twips, and makes that its minimum. Takes over
    /// the window's `onResize`, so the layout must live as long as the window is used.
    FormLayout(Window& window, Size design);

    /// Places a control. `bounds` apply while the window has its minimum size.
    void add(Control& control, const Rect& bounds, const Anchor& anchor);

 private:
    struct Item {
        Control* control;
        Rect bounds;
        Anchor anchor;
    };

    void apply();

    Window& window_;
    Size design_;
    std::vector<Item> items_;
};

}  // namespace pelk
