#pragma once
// A layout by forces, for networks of any size: people repel each other, links pull them together.

#include "map/distances.h"
#include "map/geometry.h"

namespace pelk {

/// Moves the positions towards a balance of the forces (Fruchterman and Reingold, "Graph drawing
/// by force-directed placement", Software: Practice and Experience 21, 1991), with the steps of Hu,
/// "Efficient and high quality force-directed graph drawing", The Mathematica Journal 10, 2005.
/// Requires: everybody is connected.
void balanceForces(Points& points, const Rows& rows, const LinkLengths& lengths);

}  // namespace pelk
