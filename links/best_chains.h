#pragma once
// Selects the best of several chains.

#include <cstddef>
#include <vector>

namespace pelk {

/// A chain that costs more than this is a link but never a best one: its relations have tens of
/// thousands of e-mails fewer than the strongest relation.
inline constexpr int kHighestBestCost = 30000;

/// Returns the positions of the lowest cost in `costs`, ascending; none when every cost is above
/// `kHighestBestCost`.
std::vector<std::size_t> bestChains(const std::vector<int>& costs);

}  // namespace pelk
