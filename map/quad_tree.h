#pragma once
// Approximate sums over all people: a person far away counts with its neighbours as one (Barnes and
// Hut, "A hierarchical O(N log N) force-calculation algorithm", Nature 324, 1986).

#include <array>
#include <cstdint>
#include <vector>

#include "map/geometry.h"

namespace pelk {

class QuadTree {
 public:
    /// Requires: all coordinates are finite.
    explicit QuadTree(const Points& points);

    /// Returns the sum of away / |away|² over all other people, where `away` points from the other
    /// person to this one.
    Point repulsionOn(std::uint32_t person) const;

 private:
    static constexpr std::uint32_t kNone = UINT32_MAX;
    /// A cell of this depth may hold several people: without a limit, two at the same place would
    /// be divided forever.
    static constexpr int kDeepest = 24;

    struct Cell {
        Point corner;
        double size = 0;
        /// The sum of the positions, and after the construction their mean.
        Point mean;
        double people = 0;
        /// The only person in a cell without cells below it.
        std::uint32_t person = kNone;
        std::array<std::uint32_t, 4> below{kNone, kNone, kNone, kNone};
        bool divided = false;
    };

    void add(std::uint32_t person);
    std::uint32_t cellFor(std::uint32_t cell, Point point);
    void divide(std::uint32_t cell);

    const Points& points_;
    std::vector<Cell> cells_;
};

}  // namespace pelk
