#pragma once
// The sizes that forms share, in twips.

#include "platform/controls.h"

namespace pelk {

/// The margin inside a form, and the size of its buttons.
inline constexpr int kFormMargin = 150;
inline constexpr Size kFormButton{1300, 330};

/// The margin of a form that holds only a text or a column of buttons.
inline constexpr int kWideMargin = 200;

/// Returns the bounds of a button in the bottom row, counted from the right, from 1.
constexpr Rect bottomButton(Size form, int fromRight) {
    return {form.width - fromRight * (kFormMargin + kFormButton.width),
            form.height - kFormMargin - kFormButton.height, kFormButton.width, kFormButton.height};
}

/// Returns the bounds of the only button of a form with wide margins.
constexpr Rect centeredButton(Size form) {
    return {(form.width - kFormButton.width) / 2, form.height - kWideMargin - kFormButton.height,
            kFormButton.width, kFormButton.height};
}

}  // namespace pelk
