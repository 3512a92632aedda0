#include "map/stress_layout.h"

#include <algorithm>

namespace pelk {
namespace {

constexpr int kMostRounds = 300;
/// The rounds end when nobody moves by more than this share of a link's length.
constexpr double kSettled = 0.01;

/// Returns the place of the person that minimizes a bound of its stress.
Point betterPlace(std::size_t person, const Points& points, const std::vector<double>& distances) {
    Point sum;
    double weights = 0;
    for (std::size_t other = 0; other < points.size(); ++other) {
        if (other == person)
            continue;
        const Point away = points[person] - points[other];
        const double weight = 1 / (distances[other] * distances[other]);
        const double length = lengthOf(away);
        const double factor = length > 0 ? distances[other] / length : 0;
        sum = sum + (points[other] + away * factor) * weight;
        weights += weight;
    }
    return weights > 0 ? sum * (1 / weights) : points[person];
}

}  // namespace

void reduceStress(Points& points, const Rows& rows, const LinkLengths& lengths) {
    std::vector<std::vector<double>> distances;
    for (std::uint32_t person = 0; person < points.size(); ++person)
        distances.push_back(distancesFrom(person, rows, lengths));
    double farthest = 1;
    for (int round = 0; round < kMostRounds && farthest > kSettled; ++round) {
        farthest = 0;
        for (std::size_t person = 0; person < points.size(); ++person) {
            const Point place = betterPlace(person, points, distances[person]);
            farthest = std::max(farthest, lengthOf(place - points[person]));
            points[person] = place;
        }
    }
}

double stressOf(const Points& points, const Rows& rows, const LinkLengths& lengths) {
    double ratios = 0;
    double squares = 0;
    double pairs = 0;
    for (std::uint32_t person = 0; person < points.size(); ++person) {
        const std::vector<double> distances = distancesFrom(person, rows, lengths);
        for (std::size_t other = 0; other < person; ++other) {
            if (distances[other] == kUnreachable)
                continue;
            const double ratio = lengthOf(points[person] - points[other]) / distances[other];
            ratios += ratio;
            squares += ratio * ratio;
            ++pairs;
        }
    }
    return squares > 0 ? 1 - ratios * ratios / (squares * pairs) : 0;
}

}  // namespace pelk
