#pragma once
// Which part of a picture is in view, and how that changes when the user zooms and moves.

#include "map/scene.h"

namespace pelk {

/// Returns the view at another scale in which the same place of the picture is at the point `fixed`
/// of the target. A factor above 1 enlarges.
SceneView zoomed(const SceneView& view, Point fixed, double factor);

/// Returns the view moved by so many units of the target.
SceneView moved(const SceneView& view, Point by);

/// Returns the view for a target of another size, with the same place in the middle.
SceneView resized(const SceneView& view, double width, double height);

/// Returns the nearest view that is allowed: at least at `smallestScale`, not so large that nothing
/// but space is in view, and with the middle of the target within the picture. `bounds` are those
/// of the picture, in its own units.
SceneView limited(SceneView view, double smallestScale, const Box& bounds);

/// Returns the view moved as little as possible so that a position of the picture is in view and
/// not at the edge.
SceneView movedInto(const SceneView& view, Point position);

/// Returns the view between two views of the same size, at a share from 0 to 1 of the way.
SceneView between(const SceneView& from, const SceneView& to, double share);

/// Returns the share of the way at a share of the time: movements start and end slowly.
double eased(double share);

}  // namespace pelk
