#pragma once
// A picture as circles, lines and texts, which each drawing target renders in this order: rings,
// lines, circles, marks, texts. Coordinates are those of the target, in pixels or points; y grows
// downwards.

#include <cstdint>
#include <string>
#include <vector>

#include "map/arrangement.h"
#include "map/palette.h"
#include "map/text_width.h"

namespace pelk {

struct SceneLine {
    Point from;
    Point to;
    double width = 0;
    Color color;
    /// From 0, invisible, to 1.
    double opacity = 1;
    /// The people at both ends; `kNobody` where there is none.
    std::uint32_t fromPerson = kNobody;
    std::uint32_t toPerson = kNobody;
};

struct SceneCircle {
    Point center;
    double radius = 0;
    Color fill;
    /// The number of the person in the arrangement; `kNobody` in the legend and for rings.
    std::uint32_t person = kNobody;
};

struct SceneText {
    /// One line; its left end, on the baseline.
    Point start;
    std::string text;
    /// The size of the font.
    double size = 0;
    bool bold = false;
    /// The room that the text has: no two texts overlap.
    Box box;
    /// The person whose label it is; `kNobody` for title and legend.
    std::uint32_t person = kNobody;
    /// From 0, in the colour of the background, to 1.
    double opacity = 1;
};

struct Scene {
    double width = 0;
    double height = 0;
    Color background;
    /// The colour of texts. Each has an outline in the colour of the background, so that it can be
    /// read over lines.
    Color textColor;
    /// Circles without a fill, around the middle, as a scale for distances.
    std::vector<SceneCircle> rings;
    Color ringColor;
    std::vector<SceneLine> lines;
    /// Outlined in the colour of the background.
    std::vector<SceneCircle> circles;
    /// Rings in the colour `fill` around people who are marked.
    std::vector<SceneCircle> marks;
    std::vector<SceneText> texts;
};

struct SceneStyle {
    Palette palette = lightPalette();
    /// The size of the labels' font.
    double fontSize = 12;
    TextWidth textWidth = estimatedWidth;
    /// At the top of the picture; empty for none.
    std::string title;
    /// Whether to list the groups at the right.
    bool hasLegend = false;
    /// People who get a label, in bold, before all others, in this order.
    std::vector<std::uint32_t> labelledFirst;
};

/// Which part of an arrangement a scene shows.
struct SceneView {
    double width = 0;
    double height = 0;
    /// A position p is drawn at `p * scale + offset`.
    double scale = 1;
    Point offset;
};

/// Returns the view of the whole arrangement, as large as fits beside title, legend and labels.
SceneView viewOfAll(const Arrangement& arrangement, double width, double height,
                    const SceneStyle& style);

/// Returns the picture. Labels are there for the people with most e-mails that have room for one.
Scene makeScene(const Arrangement& arrangement, const SceneView& view, const SceneStyle& style);

}  // namespace pelk
