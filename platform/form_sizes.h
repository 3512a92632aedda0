#pragma once
// The sizes that forms share, in twips.

#include "platform/controls.h"

namespace pelk {

/// What forms leave free at their edges, and the size of their buttons.
inline constexpr int kFormMargin = 150;
inline constexpr Size kFormButton{1300, 330};

/// What a form leaves free at its edges that shows a text or a column of buttons only.
inline constexpr int kWideMargin = 200;

/// The place of a button in the bottom row of a form, counted from the right edge, from 1.
constexpr Rect bottomButton(Size form, int fromRight) {
    return {form.width - fromRight * (kFormMargin + kFormButton.width),
            form.height - kFormMargin - kFormButton.height, kFormButton.width, kFormButton.height};
}

/// The place of the only button of a form with wide margins.
constexpr Rect centeredButton(Size form) {
    return {(form.width - kFormButton.width) / 2, form.height - kWideMargin - kFormButton.height,
            kFormButton.width, kFormButton.height};
}

}  // namespace pelk
