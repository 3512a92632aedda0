#pragma once
// Lets the controls of a form follow when the user makes its window larger.

#include <vector>

#include "platform/controls.h"
#include "platform/form_sizes.h"

namespace pelk {

/// What of the window's growth an edge or a side of a control takes: all (1) or nothing (0).
struct Follow {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

inline constexpr Follow kFollowsBoth{0, 0, 1, 1};
inline constexpr Follow kFollowsWidth{0, 0, 1, 0};
inline constexpr Follow kStaysAtBottom{0, 1, 1, 0};
inline constexpr Follow kStaysAtBottomRight{1, 1, 0, 0};

class FormLayout {
 public:
    /// Lays out the window from now on; it has that inner area now, and at the least. The layout
    /// must live as long as the window is used.
    FormLayout(Window& window, Size design);

    /// Places a control, with these bounds in the least inner area.
    void add(Control& control, const Rect& bounds, const Follow& follow);

 private:
    struct Item {
        Control* control;
        Rect bounds;
        Follow follow;
    };

    void apply();

    Window& window_;
    Size design_;
    std::vector<Item> items_;
};

}  // namespace pelk
