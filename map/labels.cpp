#include "map/labels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <map>
#include <utility>

namespace pelk {
namespace {

/// The distance between a circle and its label.
constexpr double kDistance = 3;

Box boxAt(double left, double top, const LabelledCircle& circle) {
    return {left, top, left + circle.width, top + circle.height};
}

/// Returns the places for a label, the best one first.
std::array<Box, 6> candidatesOf(const LabelledCircle& circle) {
    const double reach = circle.radius + kDistance;
    const double x = circle.center.x;
    const double y = circle.center.y;
    const double middleLeft = x - circle.width / 2;
    const double middleTop = y - circle.height / 2;
    const double slanted = reach * 0.7;
    return {boxAt(x + reach, middleTop, circle),
            boxAt(x - reach - circle.width, middleTop, circle),
            boxAt(middleLeft, y + reach, circle),
            boxAt(middleLeft, y - reach - circle.height, circle),
            boxAt(x + slanted, y - slanted - circle.height, circle),
            boxAt(x + slanted, y + slanted, circle)};
}

Box around(const LabelledCircle& circle) {
    return {circle.center.x - circle.radius, circle.center.y - circle.radius,
            circle.center.x + circle.radius, circle.center.y + circle.radius};
}

bool isInside(const Box& box, const Box& area) {
    return box.left >= area.left && box.right <= area.right && box.top >= area.top &&
           box.bottom <= area.bottom;
}

/// Rectangles by the square cells of a grid that they touch.
class BoxGrid {
 public:
    void add(const Box& box) {
        forEachCell(box, [&](const Cell& cell) {
            cells_[cell].push_back(box);
            return false;
        });
    }
    bool isFree(const Box& box) const {
        return !forEachCell(box, [&](const Cell& cell) {
            const auto found = cells_.find(cell);
            return found != cells_.end() &&
                   std::any_of(found->second.begin(), found->second.end(),
                               [&box](const Box& other) { return overlap(box, other); });
        });
    }

 private:
    static constexpr double kCell = 64;
    using Cell = std::pair<std::int64_t, std::int64_t>;

    /// Passes cells to `visit` until it returns true. Returns whether it did.
    template <typename Visit>
    static bool forEachCell(const Box& box, const Visit& visit) {
        const auto cellOf = [](double at) {
            return static_cast<std::int64_t>(std::floor(at / kCell));
        };
        for (std::int64_t x = cellOf(box.left); x <= cellOf(box.right); ++x)
            for (std::int64_t y = cellOf(box.top); y <= cellOf(box.bottom); ++y)
                if (visit(Cell{x, y}))
                    return true;
        return false;
    }

    std::map<Cell, std::vector<Box>> cells_;
};

}  // namespace

std::vector<std::optional<Box>> placeLabels(const std::vector<LabelledCircle>& circles,
                                            const Box& area) {
    BoxGrid taken;
    for (const LabelledCircle& circle : circles)
        if (overlap(around(circle), area))
            taken.add(around(circle));
    std::vector<std::optional<Box>> places;
    for (const LabelledCircle& circle : circles) {
        std::optional<Box>& place = places.emplace_back();
        for (const Box& box : candidatesOf(circle))
            if (!place && isInside(box, area) && taken.isFree(box))
                place = box;
        if (place)
            taken.add(*place);
    }
    return places;
}

}  // namespace pelk
