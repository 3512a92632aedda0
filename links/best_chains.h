#pragma once
// Which of several chains are the best.

#include <cstddef>
#include <vector>

namespace pelk {

/// The highest cost of a best link. A cost counts the e-mails that the chain's relations lack
/// against the strongest one, so a chain that costs more lacks tens of thousands: it is a link, but
/// no good one.
inline constexpr int kHighestBestCost = 30000;

/// The positions of the least cost in `costs`, in order. None when every cost is above
/// `kHighestBestCost`.
std::vector<std::size_t> bestChains(const std::vector<int>& costs);

}  // namespace pelk
