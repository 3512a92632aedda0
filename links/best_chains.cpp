#include "links/best_chains.h"

#include <algorithm>

namespace pelk {

std::vector<std::size_t> bestChains(const std::vector<int>& costs) {
    int best = kHighestBestCost;
    for (const int cost : costs)
        best = std::min(best, cost);
    std::vector<std::size_t> positions;
    for (std::size_t at = 0; at < costs.size(); ++at)
        if (costs[at] == best)
            positions.push_back(at);
    return positions;
}

}  // namespace pelk
