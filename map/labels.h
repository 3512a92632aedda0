#pragma once
// Labels beside circles, none over another.

#include <optional>
#include <vector>

#include "map/geometry.h"

namespace pelk {

/// A circle, and the size of its label.
struct LabelledCircle {
    Point center;
    double radius = 0;
    double width = 0;
    double height = 0;
    /// Whether the label stands at the left of the circle if both sides have room.
    bool prefersLeft = false;
    /// Whether the label may cover any circle.
    bool coversAll = false;
};

/// Returns a rectangle for each label, or nothing where there is no room. The first circles choose
/// first. A label stands beside its circle at the first of a few places where it overlaps no other
/// label, none of the other `texts` and no circle, and stays inside `area`; a label of a large
/// circle may also cover small ones, because the strongest people stand where there is least room
/// (greedy placement with fixed candidates: Christensen, Marks and Shieber, "An empirical study of
/// algorithms for point-feature label placement", ACM Transactions on Graphics 14(3), 1995).
std::vector<std::optional<Box>> placeLabels(const std::vector<LabelledCircle>& circles,
                                            const Box& area, const std::vector<Box>& texts);

}  // namespace pelk
