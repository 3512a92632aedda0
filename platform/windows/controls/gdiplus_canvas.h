#pragma once
// Draws with GDI+: in windows, in images, on pages.

#include "platform/canvas.h"
#include "platform/windows/controls/picture_font.h"

namespace pelk {

class GdiplusCanvas : public Canvas {
 public:
    /// A unit of the canvas has `scale` pixels of the target. The references outlive the canvas.
    GdiplusCanvas(Gdiplus::Graphics& target, const PictureFont& font, double scale);

    void fill(const Color& color) override;
    void line(CanvasPoint from, CanvasPoint to, double width, const Color& color,
              double opacity) override;
    void disc(CanvasPoint center, double radius, const Color& color) override;
    void ring(CanvasPoint center, double radius, double width, const Color& color,
              double opacity) override;
    void text(CanvasPoint start, const std::string& text, double size, bool bold,
              const Color& color, const Color& halo) override;

 private:
    Gdiplus::Graphics& target_;
    const PictureFont& font_;
};

}  // namespace pelk
