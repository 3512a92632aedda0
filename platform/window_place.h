#pragma once
// Where a window stands, in the toolkit's own pixels.

#include <optional>
#include <string>

#include "platform/controls.h"

namespace pelk {

/// Returns the window moved into the screen, and made smaller if it does not fit.
Rect fittedInto(const Rect& window, const Rect& screen);

/// Returns the window with its middle over that of the other.
Rect centredOver(const Rect& window, const Rect& other);

/// The text under which a place is remembered, and the place in such a text; nothing if it is not
/// one.
std::string textOfPlace(const Rect& window);
std::optional<Rect> placeIn(const std::string& text);

}  // namespace pelk
