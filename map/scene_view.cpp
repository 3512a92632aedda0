#include "map/scene_view.h"

#include <algorithm>

namespace pelk {
namespace {

/// At this scale, the nearest neighbours are as far from each other as words are long.
constexpr double kLargestScale = 8;
/// The rim where people are hard to see, as a share of the target's size.
constexpr double kRim = 0.12;

double mixed(double from, double to, double share) {
    return from + (to - from) * share;
}

/// Returns the offset at which a position is within the middle part of a target.
double offsetInto(double offset, double place, double size) {
    return offset + std::clamp(place, kRim * size, (1 - kRim) * size) - place;
}

}  // namespace

SceneView zoomed(const SceneView& view, Point fixed, double factor) {
    SceneView result = view;
    result.scale *= factor;
    result.offset = fixed + (view.offset - fixed) * factor;
    return result;
}

SceneView moved(const SceneView& view, Point by) {
    SceneView result = view;
    result.offset = view.offset + by;
    return result;
}

SceneView resized(const SceneView& view, double width, double height) {
    const Point by = Point{width - view.width, height - view.height} * 0.5;
    return {width, height, view.scale, view.offset + by};
}

SceneView limited(SceneView view, double smallestScale, const Box& bounds) {
    const Point middle{view.width / 2, view.height / 2};
    const double scale =
        std::clamp(view.scale, smallestScale, std::max(smallestScale, kLargestScale));
    view = zoomed(view, middle, scale / view.scale);
    view.scale = scale;
    view.offset = {
        std::clamp(view.offset.x, middle.x - bounds.right * scale, middle.x - bounds.left * scale),
        std::clamp(view.offset.y, middle.y - bounds.bottom * scale, middle.y - bounds.top * scale)};
    return view;
}

SceneView movedInto(const SceneView& view, Point position) {
    const Point place = position * view.scale + view.offset;
    SceneView result = view;
    result.offset = {offsetInto(view.offset.x, place.x, view.width),
                     offsetInto(view.offset.y, place.y, view.height)};
    return result;
}

SceneView between(const SceneView& from, const SceneView& to, double share) {
    return {to.width, to.height, mixed(from.scale, to.scale, share),
            from.offset + (to.offset - from.offset) * share};
}

double eased(double share) {
    return share * share * (3 - 2 * share);
}

}  // namespace pelk
