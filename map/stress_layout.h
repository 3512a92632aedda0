#pragma once
// A layout whose distances are as close as possible to those in the network. Its time grows with
// the square of the number of people.

#include "map/distances.h"
#include "map/geometry.h"

namespace pelk {

/// Moves the positions until the stress hardly decreases, by stress majorization (Gansner, Koren
/// and North, "Graph drawing by stress majorization", Graph Drawing 2004), one person after the
/// other. Requires: everybody is connected.
void reduceStress(Points& points, const Rows& rows, const LinkLengths& lengths);

/// Returns the stress of a layout at the scale that suits it best: the mean over all pairs of the
/// squared relative difference between the distance in the layout and in the network. Pairs that no
/// chain of links connects are left out.
double stressOf(const Points& points, const Rows& rows, const LinkLengths& lengths);

}  // namespace pelk
