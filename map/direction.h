#pragma once
// Directions from an angle, the same on every system.

#include "map/geometry.h"

namespace pelk {

/// Returns the point at distance 1 in a direction: 0 is upwards, 0.25 to the right, 0.5 downwards.
/// Not the libraries' sine: see map/geometry.h.
Point directionOf(double turn);

}  // namespace pelk
