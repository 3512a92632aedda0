#pragma once
// Where each person of a picture stands, which group it belongs to, and which links are drawn. This
// part of a picture does not depend on its size or on what is in view.

#include <optional>

#include "map/geometry.h"
#include "map/graph.h"
#include "map/groups.h"

namespace pelk {

/// Positions and radii are in units of which a person has about 48 by 48 on average; positions are
/// multiples of 1/64. The same graph gives the same values on every system.
struct Arrangement {
    /// The people, with the links to draw.
    Graph graph;
    /// By person; `kNoGroup` for the person in the middle.
    Groups groups;
    Points positions;
    std::vector<double> radii;
    /// Whether person 0 stands in the middle, and the distance from it shows the strength.
    bool isCircle = false;
};

/// Arranges the backbone of a network. People without a link are left out.
Arrangement arrangeCommunity(const Graph& graph);

/// Arranges a circle (see `makeCircle`): person 0 is in the middle, and those with stronger
/// relations to it are nearer. People of a group stand side by side.
Arrangement arrangeCircle(const Graph& circle);

/// Returns the largest distance of a person from the middle of a circle.
double farthestOf(const Points& positions);

/// Returns the smallest rectangle that contains all circles.
Box boundsOf(const Points& positions, const std::vector<double>& radii);

}  // namespace pelk
