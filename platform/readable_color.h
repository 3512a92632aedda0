#pragma once
// Text colours that can be read on the user's background.

#include "platform/tree_model.h"

namespace pelk {

/// The colour as it is on a light background. On a dark one it is lightened, as far as it takes
/// to stand out from it.
Color readableColor(const Color& color, const Color& background);

}  // namespace pelk
