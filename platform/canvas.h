#pragma once
// Draws shapes and text with smooth edges: in a window, in an image, on a page.
//
// Coordinates and sizes are in units that the target chooses so that a text of size 12 is about as
// large as the user's other texts; y grows downwards. They need not be whole numbers. All calls are
// made on the thread that asked for the drawing.

#include <string>
#include <string_view>

#include "platform/tree_model.h"

namespace pelk {

struct CanvasPoint {
    double x = 0;
    double y = 0;

    friend bool operator==(const CanvasPoint&, const CanvasPoint&) = default;
};

struct CanvasSize {
    double width = 0;
    double height = 0;

    friend bool operator==(const CanvasSize&, const CanvasSize&) = default;
};

class Canvas {
 public:
    virtual ~Canvas() = default;

    /// Covers everything with a colour.
    virtual void fill(const Color& color) = 0;
    /// Draws a straight line with round ends. `opacity` is from 0, invisible, to 1.
    virtual void line(CanvasPoint from, CanvasPoint to, double width, const Color& color,
                      double opacity) = 0;
    /// Draws a filled circle, and the edge of one.
    virtual void disc(CanvasPoint center, double radius, const Color& color) = 0;
    virtual void ring(CanvasPoint center, double radius, double width, const Color& color,
                      double opacity) = 0;
    /// Draws one line of text over an outline in the colour `halo`, so that it can be read over
    /// lines. `start` is its left end, on the baseline; `size` is that of the font.
    virtual void text(CanvasPoint start, const std::string& text, double size, bool bold,
                      const Color& color, const Color& halo) = 0;
};

}  // namespace pelk
