#pragma once
// Lets a picture use its room.

#include "map/geometry.h"

namespace pelk {

/// Moves crowded people apart and lonely ones near, on each axis by itself, so that a few people at
/// the rim do not make all others small: histogram equalization (Gonzalez and Woods, "Digital Image
/// Processing", 1992) in part, so that distances still say something. Their order on each axis
/// stays.
void equalize(Points& points);

}  // namespace pelk
