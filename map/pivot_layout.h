#pragma once
// The first positions of a layout.

#include "map/distances.h"
#include "map/geometry.h"

namespace pelk {

/// Returns positions at distances roughly like those in the network, by multidimensional scaling
/// with some people as pivots (Brandes and Pich, "Eigensolver methods for progressive
/// multidimensional scaling of large data", Graph Drawing 2006). People with the same links get
/// different positions. Requires: everybody is connected.
Points pivotLayout(const Rows& rows, const LinkLengths& lengths);

}  // namespace pelk
