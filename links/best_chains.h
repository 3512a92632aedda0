#pragma once
// Which of several chains are the best.

#include <cstddef>
#include <vector>

namespace pelk {

/// The positions of the least cost in `costs`, in order. None when every cost is above 30000: such
/// a chain is too weak to be called a best link.
std::vector<std::size_t> bestChains(const std::vector<int>& costs);

}  // namespace pelk
