#pragma once
// Text colours that can be read on the user's background, by the contrast ratio of WCAG 2
// (https://www.w3.org/TR/WCAG22/#contrast-minimum).

#include "platform/tree_model.h"

namespace pelk {

/// Returns the contrast ratio of two colours, from 1 to 21.
double contrastRatio(const Color& one, const Color& other);

/// Returns `color` unchanged on white. On any other background it returns a colour as much lighter
/// or darker as the contrast ratio of 4.5 needs, which WCAG 2 requires of text at level AA.
Color readableColor(const Color& color, const Color& background);

/// Returns a colour for secondary text: `text` faded into `background` as far as the contrast ratio
/// of 4.5 permits, at most by half. Returns `text` when that has less contrast itself.
Color fadedColor(const Color& text, const Color& background);

/// Returns a colour between both: `percent` of `other`, the rest of `color`.
Color mixedColor(const Color& color, const Color& other, int percent);

}  // namespace pelk
