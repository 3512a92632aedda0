#include "map/distances.h"

#include <functional>
#include <queue>
#include <utility>

namespace pelk {

std::vector<double> distancesFrom(std::uint32_t source, const Rows& rows,
                                  const LinkLengths& lengths) {
    using Entry = std::pair<double, std::uint32_t>;
    std::vector<double> distances(rows.size(), kUnreachable);
    std::priority_queue<Entry, std::vector<Entry>, std::greater<>> queue;
    distances[source] = 0;
    queue.emplace(0, source);
    while (!queue.empty()) {
        const auto [distance, person] = queue.top();
        queue.pop();
        if (distance > distances[person])
            continue;
        for (const Neighbour& neighbour : rows.of(person)) {
            const double further = distance + lengths[neighbour.link];
            if (further < distances[neighbour.person]) {
                distances[neighbour.person] = further;
                queue.emplace(further, neighbour.person);
            }
        }
    }
    return distances;
}

}  // namespace pelk
