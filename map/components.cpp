#include "map/components.h"

#include <algorithm>

namespace pelk {
namespace {

std::vector<std::uint32_t> reachableFrom(std::uint32_t start, const Rows& rows,
                                         std::vector<bool>& seen) {
    std::vector<std::uint32_t> people{start};
    seen[start] = true;
    for (std::size_t at = 0; at < people.size(); ++at)
        for (const Neighbour& neighbour : rows.of(people[at]))
            if (!seen[neighbour.person]) {
                seen[neighbour.person] = true;
                people.push_back(neighbour.person);
            }
    std::sort(people.begin(), people.end());
    return people;
}

}  // namespace

std::vector<std::vector<std::uint32_t>> componentsOf(const Rows& rows) {
    std::vector<bool> seen(rows.size());
    std::vector<std::vector<std::uint32_t>> components;
    for (std::uint32_t person = 0; person < rows.size(); ++person)
        if (!seen[person])
            components.push_back(reachableFrom(person, rows, seen));
    std::stable_sort(components.begin(), components.end(),
                     [](const auto& a, const auto& b) { return a.size() > b.size(); });
    return components;
}

}  // namespace pelk
