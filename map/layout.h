#pragma once
// Positions of people, so that those who write to each other are near each other.

#include "map/distances.h"
#include "map/geometry.h"

namespace pelk {

/// Up to so many people, a layout by stress takes no time, and it is the better one.
inline constexpr std::size_t kMostByStress = 100;

/// Returns positions at which the links are about as long as `lengths` says: by stress for few
/// people, by forces for many. The same input gives the same positions on every system. Requires:
/// everybody is connected.
Points layOutConnected(const Rows& rows, const LinkLengths& lengths);

}  // namespace pelk
