#pragma once
// Draws with a QPainter, one of its units for each unit of the canvas.

#include <QPainter>

#include "platform/canvas.h"
#include "platform/desktop/qt/label_images.h"

namespace pelk {

class QtCanvas : public Canvas {
 public:
    /// With `labels`, texts are images that stay there for the next painting: that is quick, and
    /// for screens only. Both outlive the canvas.
    explicit QtCanvas(QPainter& painter, LabelImages* labels = nullptr);

    void fill(const Color& color) override;
    void line(CanvasPoint from, CanvasPoint to, double width, const Color& color,
              double opacity) override;
    void disc(CanvasPoint center, double radius, const Color& color) override;
    void ring(CanvasPoint center, double radius, double width, const Color& color,
              double opacity) override;
    void text(CanvasPoint start, const std::string& text, double size, bool bold,
              const Color& color, const Color& halo) override;

 private:
    QPainter& painter_;
    LabelImages* labels_;
};

}  // namespace pelk
