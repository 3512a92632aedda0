#include "map/spread.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace pelk {
namespace {

constexpr int kMostRounds = 100;

/// Compares circles in the order of x, and only up to the distance at which the two largest ones
/// would be too close.
class Sweep {
 public:
    Sweep(Points& centers, const std::vector<double>& radii, double gap)
        : centers_(centers),
          radii_(radii),
          gap_(gap),
          reach_(2 * *std::max_element(radii.begin(), radii.end()) + gap),
          order_(centers.size()) {
        std::iota(order_.begin(), order_.end(), 0);
    }

    /// Returns whether any two circles were too close.
    bool pushAll() {
        bool pushed = false;
        sortByX();
        for (std::size_t at = 0; at < order_.size(); ++at)
            for (std::size_t next = at + 1; next < order_.size() && isNear(at, next); ++next)
                pushed = push(order_[at], order_[next]) || pushed;
        return pushed;
    }

 private:
    void sortByX() {
        std::sort(order_.begin(), order_.end(), [this](std::size_t a, std::size_t b) {
            return centers_[a].x != centers_[b].x ? centers_[a].x < centers_[b].x : a < b;
        });
    }

    bool isNear(std::size_t at, std::size_t next) const {
        return centers_[order_[next]].x - centers_[order_[at]].x < reach_;
    }

    bool push(std::size_t a, std::size_t b) {
        const double wanted = radii_[a] + radii_[b] + gap_;
        Point along = centers_[b] - centers_[a];
        if (squareOf(along) >= wanted * wanted)
            return false;
        // Circles at the same place have no direction of their own.
        if (squareOf(along) == 0)
            along = {1, 0.5};
        const double length = lengthOf(along);
        const Point half = along * ((wanted - std::min(length, wanted)) / length / 2);
        centers_[a] = centers_[a] - half;
        centers_[b] = centers_[b] + half;
        return true;
    }

    Points& centers_;
    const std::vector<double>& radii_;
    double gap_;
    double reach_;
    std::vector<std::size_t> order_;
};

}  // namespace

void spread(Points& centers, const std::vector<double>& radii, double gap) {
    if (centers.empty())
        return;
    Sweep sweep(centers, radii, gap);
    for (int round = 0; round < kMostRounds && sweep.pushAll(); ++round) {
    }
}

}  // namespace pelk
