#pragma once
// Draws in an image.

#include <QImage>
#include <vector>

#include "platform/desktop/qt/canvas.h"

namespace pelk {

/// Keeps lines and discs until something else is drawn, so that two threads can share many of them.
class ImageCanvas : public Canvas {
 public:
    /// The image has so many pixels for each unit. It and `labels` (see `QtCanvas`) outlive the
    /// canvas.
    ImageCanvas(QImage& image, double scale, LabelImages* labels = nullptr);
    ~ImageCanvas() override { drawShapes(); }

    void fill(const Color& color) override;
    void line(CanvasPoint from, CanvasPoint to, double width, const Color& color,
              double opacity) override;
    void disc(CanvasPoint center, double radius, const Color& color) override;
    void ring(CanvasPoint center, double radius, double width, const Color& color,
              double opacity) override;
    void text(CanvasPoint start, const std::string& text, double size, bool bold,
              const Color& color, const Color& halo) override;

 private:
    /// A line, or a disc if both ends are the same.
    struct Shape {
        CanvasPoint from;
        CanvasPoint to;
        double width;
        Color color;
        double opacity;
    };

    void drawShapes();
    void drawShapesInRows(int first, int end) const;

    uchar* const pixels_;
    const QImage& image_;
    const double scale_;
    std::vector<Shape> shapes_;
    QPainter painter_;
    QtCanvas canvas_;
};

}  // namespace pelk
