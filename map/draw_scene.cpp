#include "map/draw_scene.h"

#include <algorithm>
#include <cmath>

#include "platform/readable_color.h"

namespace pelk {
namespace {

constexpr double kRingWidth = 1;
constexpr double kRingOpacity = 0.5;
constexpr double kOutline = 1;
constexpr double kMarkWidth = 2;

CanvasPoint onCanvas(Point point) {
    return {point.x, point.y};
}

Box around(Point center, double reach) {
    return {center.x - reach, center.y - reach, center.x + reach, center.y + reach};
}

Box around(const SceneLine& line) {
    const auto [left, right] = std::minmax(line.from.x, line.to.x);
    const auto [top, bottom] = std::minmax(line.from.y, line.to.y);
    return {left - line.width, top - line.width, right + line.width, bottom + line.width};
}

/// Draws the outline as a larger circle beneath: that costs less than a ring.
void drawCircle(const SceneCircle& circle, const Color& outline, Canvas& canvas) {
    if (circle.radius <= kOutline / 2)
        return;
    canvas.disc(onCanvas(circle.center), circle.radius + kOutline / 2, outline);
    canvas.disc(onCanvas(circle.center), circle.radius - kOutline / 2, circle.fill);
}

/// Returns one of a few colours, because a canvas may keep an image for each.
Color colorOf(const SceneText& text, const Scene& scene) {
    const int percent = static_cast<int>(std::lround(10 * (1 - text.opacity))) * 10;
    return mixedColor(scene.textColor, scene.background, percent);
}

}  // namespace

void draw(const Scene& scene, Canvas& canvas) {
    const Box area{0, 0, scene.width, scene.height};
    canvas.fill(scene.background);
    for (const SceneCircle& ring : scene.rings)
        canvas.ring(onCanvas(ring.center), ring.radius, kRingWidth, scene.ringColor, kRingOpacity);
    for (const SceneLine& line : scene.lines)
        if (overlap(around(line), area))
            canvas.line(onCanvas(line.from), onCanvas(line.to), line.width, line.color,
                        line.opacity);
    for (const SceneCircle& circle : scene.circles)
        if (overlap(around(circle.center, circle.radius + kOutline), area))
            drawCircle(circle, scene.background, canvas);
    for (const SceneCircle& mark : scene.marks)
        canvas.ring(onCanvas(mark.center), mark.radius, kMarkWidth, mark.fill, 1);
    for (const SceneText& text : scene.texts)
        if (text.opacity > 0)
            canvas.text(onCanvas(text.start), text.text, text.size, text.bold, colorOf(text, scene),
                        scene.background);
}

}  // namespace pelk
