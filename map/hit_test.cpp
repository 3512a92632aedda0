#include "map/hit_test.h"

#include <limits>

namespace pelk {
namespace {

/// How far beside a circle the user may point: small ones are hard to hit.
constexpr double kReach = 4;

bool contains(const Box& box, Point point) {
    return point.x >= box.left && point.x < box.right && point.y >= box.top && point.y < box.bottom;
}

}  // namespace

std::uint32_t personAt(const Scene& scene, Point point) {
    std::uint32_t found = kNobody;
    double nearest = std::numeric_limits<double>::infinity();
    for (const SceneCircle& circle : scene.circles) {
        const double distance = lengthOf(circle.center - point);
        if (circle.person != kNobody && distance <= circle.radius + kReach && distance < nearest) {
            found = circle.person;
            nearest = distance;
        }
    }
    if (found == kNobody)
        for (const SceneText& text : scene.texts)
            if (text.person != kNobody && contains(text.box, point))
                return text.person;
    return found;
}

}  // namespace pelk
