#pragma once
// The way from one picture to another: people who are in both move, others vanish or appear.

#include <optional>
#include <vector>

#include "map/scene.h"

namespace pelk {

/// Gives a scene the numbers that its people have in another graph; `kNobody` to those who are not
/// in it.
void renumberPeople(Scene& scene, const Graph& from, const Graph& to);

/// Returns the scene at a share from 0 to 1 of the way between two scenes of the same size, whose
/// people have the same numbers. It has all people of the second one. At 1, it is the second one.
Scene sceneBetween(const Scene& from, const Scene& to, double share);

}  // namespace pelk
