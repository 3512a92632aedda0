#pragma once
// Distances in a network, along the shortest chain of links.

#include <limits>
#include <vector>

#include "map/rows.h"

namespace pelk {

inline constexpr double kUnreachable = std::numeric_limits<double>::infinity();

/// By link: how long it should be in a picture, above 0.
using LinkLengths = std::vector<double>;

/// Returns the distance of each person from `source` (Dijkstra, "A note on two problems in
/// connexion with graphs", Numerische Mathematik 1, 1959).
std::vector<double> distancesFrom(std::uint32_t source, const Rows& rows,
                                  const LinkLengths& lengths);

}  // namespace pelk
