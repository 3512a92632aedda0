#pragma once
// Keeps the circles of a picture apart.

#include <vector>

#include "map/geometry.h"

namespace pelk {

/// Moves circles that are closer than `gap` to each other apart, and others as little as possible.
/// In a very dense place a few may remain closer.
void spread(Points& centers, const std::vector<double>& radii, double gap);

}  // namespace pelk
