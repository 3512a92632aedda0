#include "map/equalize.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace pelk {
namespace {

/// How far a point moves from its place towards that of its rank. With more, stars become sickles;
/// with less, the middle stays crowded.
constexpr double kShare = 0.6;

void equalizeAlong(double Point::*axis, Points& points) {
    std::vector<std::size_t> order(points.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&points, axis](std::size_t a, std::size_t b) {
        return points[a].*axis < points[b].*axis;
    });
    const double first = points[order.front()].*axis;
    const double step = (points[order.back()].*axis - first) / static_cast<double>(order.size());
    for (std::size_t rank = 0; rank < order.size(); ++rank) {
        double& place = points[order[rank]].*axis;
        place += kShare * (first + step * (static_cast<double>(rank) + 0.5) - place);
    }
}

}  // namespace

void equalize(Points& points) {
    if (points.empty())
        return;
    equalizeAlong(&Point::x, points);
    equalizeAlong(&Point::y, points);
}

}  // namespace pelk
