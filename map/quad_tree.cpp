#include "map/quad_tree.h"

#include <algorithm>

namespace pelk {
namespace {

/// A cell counts as one if its size is below this share of its distance.
constexpr double kFar = 1.2;

}  // namespace

QuadTree::QuadTree(const Points& points) : points_(points) {
    cells_.reserve(2 * points.size() + 1);
    Cell& root = cells_.emplace_back();
    if (points.empty())
        return;
    root.corner = points.front();
    Point end = points.front();
    for (const Point& point : points) {
        root.corner = {std::min(root.corner.x, point.x), std::min(root.corner.y, point.y)};
        end = {std::max(end.x, point.x), std::max(end.y, point.y)};
    }
    root.size = std::max(end.x - root.corner.x, end.y - root.corner.y);
    for (std::uint32_t person = 0; person < points.size(); ++person)
        add(person);
    for (Cell& cell : cells_)
        cell.mean = cell.mean * (1 / cell.people);
}

void QuadTree::add(std::uint32_t person) {
    const Point point = points_[person];
    std::uint32_t at = 0;
    for (int depth = 0;; ++depth) {
        if (cells_[at].people > 0 && !cells_[at].divided && depth < kDeepest)
            divide(at);
        Cell& cell = cells_[at];
        cell.mean = cell.mean + point;
        cell.people += 1;
        if (!cell.divided) {
            cell.person = cell.people == 1 ? person : kNone;
            return;
        }
        at = cellFor(at, point);
    }
}

/// Moves the cell's only person into a cell below it.
void QuadTree::divide(std::uint32_t at) {
    const std::uint32_t person = cells_[at].person;
    cells_[at].divided = true;
    cells_[at].person = kNone;
    Cell& below = cells_[cellFor(at, points_[person])];
    below.person = person;
    below.mean = points_[person];
    below.people = 1;
}

/// Returns the cell below `at` that contains the point, after creating it if there is none.
std::uint32_t QuadTree::cellFor(std::uint32_t at, Point point) {
    const double half = cells_[at].size / 2;
    Point corner = cells_[at].corner;
    const bool isRight = point.x >= corner.x + half;
    const bool isLow = point.y >= corner.y + half;
    std::uint32_t& below = cells_[at].below[(isRight ? 1U : 0U) + (isLow ? 2U : 0U)];
    if (below != kNone)
        return below;
    const auto created = static_cast<std::uint32_t>(cells_.size());
    below = created;
    corner = corner + Point{isRight ? half : 0, isLow ? half : 0};
    cells_.push_back({corner, half, {}, 0, kNone});
    return created;
}

Point QuadTree::repulsionOn(std::uint32_t person) const {
    const Point point = points_[person];
    Point sum;
    std::array<std::uint32_t, std::size_t{4} * (kDeepest + 1)> waiting;
    std::size_t count = 0;
    waiting[count++] = 0;
    while (count > 0) {
        const Cell& cell = cells_[waiting[--count]];
        const Point away = point - cell.mean;
        const double square = squareOf(away);
        if (cell.divided && cell.size * cell.size > kFar * kFar * square) {
            for (const std::uint32_t below : cell.below)
                if (below != kNone)
                    waiting[count++] = below;
        } else if (square > 0) {
            sum = sum + away * (cell.people / square);
        }
    }
    return sum;
}

}  // namespace pelk
