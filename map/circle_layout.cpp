// The circle of one person.

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>

#include "map/arrangement.h"
#include "map/backbone.h"
#include "map/direction.h"

namespace pelk {
namespace {

/// The distances of the nearest and, for each person around, of the farthest circle.
constexpr double kNearest = 90;
constexpr double kSpaceOfPerson = 48;
constexpr double kMiddleRadius = 18;
constexpr double kSmallestRadius = 5;
constexpr double kLargestRadius = 14;

/// By person: the weight of the link to the person in the middle.
std::vector<double> weightsToMiddle(const Graph& circle) {
    std::vector<double> weights(circle.people.size());
    for (const GraphLink& link : circle.links)
        if (link.from == 0)
            weights[link.to] = link.weight;
    return weights;
}

/// Returns the people around the middle without it: person 1 is number 0.
Graph peopleAround(const Graph& circle) {
    std::vector<std::uint32_t> people(circle.people.size() - 1);
    std::iota(people.begin(), people.end(), 1);
    return partOf(circle, people);
}

Groups groupsAround(const Graph& around) {
    Groups groups = findGroups(around);
    groups.insert(groups.begin(), kNoGroup);
    return groups;
}

/// Keeps all links to the middle and the backbone of the others.
void reduceLinks(Graph& circle, const Graph& around) {
    std::erase_if(circle.links, [](const GraphLink& link) { return link.from != 0; });
    for (GraphLink link : backboneOf(around).links) {
        ++link.from;
        ++link.to;
        circle.links.push_back(link);
    }
}

/// Returns a distance for each person that depends on the rank alone: the weights themselves differ
/// by factors of thousands, so most people would stand at the rim. Equal weights have equal
/// distances.
std::vector<double> distancesOf(const std::vector<double>& weights) {
    std::vector<double> sorted(weights.begin() + 1, weights.end());
    std::sort(sorted.begin(), sorted.end(), std::greater<>());
    const double count = static_cast<double>(sorted.size());
    const double farthest = kNearest + kSpaceOfPerson * std::sqrt(count);
    std::vector<double> distances{0};
    for (std::size_t person = 1; person < weights.size(); ++person) {
        const auto [first, last] =
            std::equal_range(sorted.begin(), sorted.end(), weights[person], std::greater<>());
        const double rank =
            static_cast<double>((first - sorted.begin()) + (last - sorted.begin())) / 2;
        distances.push_back(kNearest + (farthest - kNearest) * std::sqrt(rank / count));
    }
    return distances;
}

/// Returns the people around by group and then by distance.
std::vector<std::uint32_t> orderAround(const Groups& groups, const std::vector<double>& distances) {
    std::vector<std::uint32_t> order(groups.size() - 1);
    std::iota(order.begin(), order.end(), 1);
    std::sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
        return std::tie(groups[a], distances[a], a) < std::tie(groups[b], distances[b], b);
    });
    return order;
}

std::vector<double> radiiAround(const std::vector<double>& weights) {
    const double most = *std::max_element(weights.begin(), weights.end());
    std::vector<double> radii;
    radii.reserve(weights.size());
    for (const double weight : weights)
        radii.push_back(kSmallestRadius + (kLargestRadius - kSmallestRadius) *
                                              std::sqrt(weight / std::max(most, 1.0)));
    radii.front() = kMiddleRadius;
    return radii;
}

}  // namespace

Arrangement arrangeCircle(const Graph& circle) {
    Arrangement result{circle, {}, {}, {}, true};
    const Graph around = peopleAround(circle);
    result.groups = groupsAround(around);
    reduceLinks(result.graph, around);
    const std::vector<double> weights = weightsToMiddle(circle);
    result.radii = radiiAround(weights);
    const std::vector<double> distances = distancesOf(weights);
    const std::vector<std::uint32_t> order = orderAround(result.groups, distances);
    result.positions.resize(circle.people.size());
    for (std::size_t at = 0; at < order.size(); ++at)
        result.positions[order[at]] =
            directionOf(static_cast<double>(at) / static_cast<double>(order.size())) *
            distances[order[at]];
    roundToGrid(result.positions);
    return result;
}

}  // namespace pelk
