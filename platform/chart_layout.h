#pragma once
// Where a bar chart has its bars, lines and texts, in pixels. The toolkits only paint them.

#include <functional>
#include <string>
#include <vector>

#include "platform/controls.h"

namespace pelk {

/// The space of a chart, and how a toolkit measures text.
struct ChartSpace {
    Size pixels;
    int lineHeight = 0;
    std::function<int(const std::string& text)> widthOf;
};

struct ChartBox {
    Rect place;
    /// Whether it belongs to the series above the line or to the one below.
    bool isAbove = true;
};

enum class ChartAlign { Left, Center, Right };

/// One line of text, cut with an ellipsis where it is wider than its place.
struct ChartText {
    Rect place;
    std::string text;
    ChartAlign align = ChartAlign::Left;
};

struct ChartLayout {
    /// Horizontal lines of the scale, which the bars cover, and the line between the series.
    std::vector<Rect> scaleLines;
    Rect middleLine;
    /// The bars, and the keys of the legend.
    std::vector<ChartBox> boxes;
    std::vector<ChartText> texts;
};

/// Returns the layout. It is empty if the space is too small for a chart. A number other than 0 is
/// seen, however small it is beside the others. Labels that would overlap the one before are left
/// out.
ChartLayout layOut(const ChartContent& content, const ChartSpace& space);

/// The colours of the parts of a chart.
struct ChartColors {
    Color above;
    Color below;
    Color scaleLine;
};

/// Returns colours that stand out from the background. The series also differ by their places, so
/// that nobody needs to tell the colours apart.
ChartColors chartColors(const Color& text, const Color& background);

}  // namespace pelk
