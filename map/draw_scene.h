#pragma once
// Draws scenes.

#include "map/scene.h"
#include "platform/canvas.h"

namespace pelk {

/// Draws a scene in its own coordinates. Leaves out what lies outside of it.
void draw(const Scene& scene, Canvas& canvas);

}  // namespace pelk
