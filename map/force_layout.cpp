#include "map/force_layout.h"

#include "map/quad_tree.h"

namespace pelk {
namespace {

constexpr int kMostRounds = 150;
constexpr double kCooling = 0.9;
/// After so many rounds that each reduced the forces, the steps become longer.
constexpr int kRoundsOfProgress = 5;
/// The rounds end when the steps are shorter than this share of a link's length.
constexpr double kShortestStep = 0.01;
/// The strength of the repulsion, as in Hu's paper.
constexpr double kRepulsion = 0.2;

class ForceLayout {
 public:
    ForceLayout(Points& points, const Rows& rows, const LinkLengths& lengths)
        : points_(points), rows_(rows), lengths_(lengths) {}

    void run() {
        for (int round = 0; round < kMostRounds && step_ > kShortestStep; ++round)
            adaptStep(moveAll());
    }

 private:
    /// Moves everybody by one step along the force. Returns the sum of the squared forces.
    double moveAll() {
        const QuadTree tree(points_);
        Points moved;
        double energy = 0;
        for (std::uint32_t person = 0; person < points_.size(); ++person) {
            const Point force = tree.repulsionOn(person) * kRepulsion + pullOn(person);
            const double strength = lengthOf(force);
            moved.push_back(points_[person] + force * (strength > 0 ? step_ / strength : 0));
            energy += strength * strength;
        }
        points_ = std::move(moved);
        return energy;
    }

    Point pullOn(std::uint32_t person) const {
        Point pull;
        for (const Neighbour& neighbour : rows_.of(person)) {
            const Point along = points_[neighbour.person] - points_[person];
            pull = pull + along * (lengthOf(along) / lengths_[neighbour.link]);
        }
        return pull;
    }

    void adaptStep(double energy) {
        progress_ = energy < energy_ ? progress_ + 1 : 0;
        if (progress_ == 0)
            step_ *= kCooling;
        if (progress_ == kRoundsOfProgress) {
            progress_ = 0;
            step_ /= kCooling;
        }
        energy_ = energy;
    }

    Points& points_;
    const Rows& rows_;
    const LinkLengths& lengths_;
    double step_ = 1;
    double energy_ = kUnreachable;
    int progress_ = 0;
};

}  // namespace

void balanceForces(Points& points, const Rows& rows, const LinkLengths& lengths) {
    ForceLayout(points, rows, lengths).run();
}

}  // namespace pelk
