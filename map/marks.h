#pragma once
// Marks people of a picture: the selected one, those who were found, a chain.

#include <cstdint>
#include <vector>

#include "map/scene.h"

namespace pelk {

/// People by number.
struct Marks {
    std::uint32_t selected = kNobody;
    std::vector<std::uint32_t> found;
    /// From one end to the other.
    std::vector<std::uint32_t> path;
};

/// Returns the people whom the marks are for, in the order in which they should have labels.
std::vector<std::uint32_t> markedPeople(const Marks& marks);

/// Adds the marks to the scene of an arrangement: rings around the people, thick lines along the
/// chain and the lines of the selected person. When there are people found or a chain, all others
/// fade, and the lines that do not connect two of them.
void showMarks(Scene& scene, const Arrangement& arrangement, const SceneView& view,
               const Marks& marks);

}  // namespace pelk
