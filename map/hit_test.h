#pragma once
// Which person of a picture the user points at.

#include "map/scene.h"

namespace pelk {

/// Returns the person whose circle is at the point or just beside it, of several the one whose
/// middle is nearest, and else the one whose label is there; `kNobody` if there is none.
std::uint32_t personAt(const Scene& scene, Point point);

}  // namespace pelk
