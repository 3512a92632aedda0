#include "map/labels.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <utility>

namespace pelk {
namespace {

/// The distance between a circle and its label.
constexpr double kDistance = 3;
/// A circle is large if its radius is at least this share of the largest one. Its label may cover
/// others of up to this share of its own radius.
constexpr double kLarge = 0.45;
constexpr double kCovered = 0.8;
/// The width of the narrowest rectangle that counts.
constexpr double kAny = std::numeric_limits<double>::min();

Box boxAt(double left, double top, const LabelledCircle& circle) {
    return {left, top, left + circle.width, top + circle.height};
}

using Candidates = std::array<Box, 8>;

/// Returns the places for a label, the best one first.
Candidates candidatesOf(const LabelledCircle& circle) {
    const double reach = circle.radius + kDistance;
    const double x = circle.center.x;
    const double y = circle.center.y;
    const double middleLeft = x - circle.width / 2;
    const double middleTop = y - circle.height / 2;
    const double slanted = reach * 0.7;
    Candidates boxes{boxAt(x + reach, middleTop, circle),
                     boxAt(x - reach - circle.width, middleTop, circle),
                     boxAt(middleLeft, y + reach, circle),
                     boxAt(middleLeft, y - reach - circle.height, circle),
                     boxAt(x + slanted, y - slanted - circle.height, circle),
                     boxAt(x + slanted, y + slanted, circle),
                     boxAt(x - slanted - circle.width, y - slanted - circle.height, circle),
                     boxAt(x - slanted - circle.width, y + slanted, circle)};
    if (circle.prefersLeft)
        std::swap(boxes[0], boxes[1]);
    return boxes;
}

Box around(const LabelledCircle& circle) {
    return {circle.center.x - circle.radius, circle.center.y - circle.radius,
            circle.center.x + circle.radius, circle.center.y + circle.radius};
}

bool isInside(const Box& box, const Box& area) {
    return box.left >= area.left && box.right <= area.right && box.top >= area.top &&
           box.bottom <= area.bottom;
}

/// Rectangles by the square cells of a grid that they touch. Outside of the area, the cells at its
/// edge go on.
class BoxGrid {
 public:
    explicit BoxGrid(const Box& area)
        : area_(area),
          columns_(cellOf(area.width(), kMostCells) + 1),
          rows_(cellOf(area.height(), kMostCells) + 1),
          cells_(columns_ * rows_) {}

    void add(const Box& box) {
        const Cells touched = cellsOf(box);
        for (std::size_t row = touched.top; row <= touched.bottom; ++row)
            for (std::size_t column = touched.left; column <= touched.right; ++column)
                cells_[row * columns_ + column].push_back(box);
    }

    /// Returns the largest of the rectangles that overlap this one, by width; 0 if there is none.
    /// Stops at one that is at least as wide as `enough`.
    double widestUnder(const Box& box, double enough) const {
        double widest = 0;
        const Cells touched = cellsOf(box);
        for (std::size_t row = touched.top; row <= touched.bottom; ++row)
            for (std::size_t column = touched.left; column <= touched.right; ++column)
                for (const Box& other : cells_[row * columns_ + column])
                    if (overlap(box, other)) {
                        widest = std::max(widest, other.width());
                        if (widest >= enough)
                            return widest;
                    }
        return widest;
    }

 private:
    static constexpr double kCell = 32;
    static constexpr std::size_t kMostCells = 1000;

    struct Cells {
        std::size_t left;
        std::size_t top;
        std::size_t right;
        std::size_t bottom;
    };

    /// Returns the number of a cell by the distance from the first one, which may be any number.
    static std::size_t cellOf(double distance, std::size_t last) {
        return distance < kCell ? 0
               : distance >= kCell * static_cast<double>(last)
                   ? last
                   : static_cast<std::size_t>(distance / kCell);
    }

    Cells cellsOf(const Box& box) const {
        return {cellOf(box.left - area_.left, columns_ - 1), cellOf(box.top - area_.top, rows_ - 1),
                cellOf(box.right - area_.left, columns_ - 1),
                cellOf(box.bottom - area_.top, rows_ - 1)};
    }

    Box area_;
    std::size_t columns_;
    std::size_t rows_;
    std::vector<std::vector<Box>> cells_;
};

class LabelPlacement {
 public:
    LabelPlacement(const std::vector<LabelledCircle>& circles, const Box& area,
                   const std::vector<Box>& texts)
        : area_(area), circles_(area), labels_(area) {
        for (const Box& text : texts)
            labels_.add(text);
        for (const LabelledCircle& circle : circles) {
            largest_ = std::max(largest_, circle.radius);
            if (overlap(around(circle), area))
                circles_.add(around(circle));
        }
    }

    /// Returns the place that covers no circle, or for a large circle the smallest ones.
    std::optional<Box> place(const LabelledCircle& circle) {
        double least = widestCovered(circle);
        std::optional<Box> best;
        for (const Box& box : candidatesOf(circle)) {
            if (!isInside(box, area_) || labels_.widestUnder(box, kAny) > 0)
                continue;
            const double covered = circles_.widestUnder(box, std::max(least, kAny));
            if (covered < least || (!best && covered == 0)) {
                best = box;
                least = covered;
                if (covered == 0)
                    break;
            }
        }
        if (best)
            labels_.add(*best);
        return best;
    }

 private:
    /// Returns a width below which a label may cover a circle.
    double widestCovered(const LabelledCircle& circle) const {
        if (circle.coversAll)
            return std::numeric_limits<double>::infinity();
        return circle.radius >= kLarge * largest_ ? kCovered * 2 * circle.radius : 0;
    }

    const Box& area_;
    BoxGrid circles_;
    BoxGrid labels_;
    double largest_ = 0;
};

}  // namespace

std::vector<std::optional<Box>> placeLabels(const std::vector<LabelledCircle>& circles,
                                            const Box& area, const std::vector<Box>& texts) {
    LabelPlacement placement(circles, area, texts);
    std::vector<std::optional<Box>> places;
    places.reserve(circles.size());
    for (const LabelledCircle& circle : circles)
        places.push_back(placement.place(circle));
    return places;
}

}  // namespace pelk
