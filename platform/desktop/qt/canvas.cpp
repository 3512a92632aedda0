#include "platform/desktop/qt/canvas.h"

#include "platform/desktop/qt/colors.h"

namespace pelk {
namespace {

/// Qt draws lines with flat ends several times as fast. At thinner lines nobody sees the ends.
constexpr double kThinLine = 2;

QPointF toQt(CanvasPoint point) {
    return {point.x, point.y};
}

QColor toQt(const Color& color, double opacity) {
    QColor qt = toQt(color);
    qt.setAlphaF(static_cast<float>(opacity));
    return qt;
}

}  // namespace

QtCanvas::QtCanvas(QPainter& painter, LabelImages* labels) : painter_(painter), labels_(labels) {
    painter.setRenderHint(QPainter::Antialiasing);
}

void QtCanvas::fill(const Color& color) {
    painter_.setWorldMatrixEnabled(false);
    painter_.fillRect(painter_.viewport(), toQt(color));
    painter_.setWorldMatrixEnabled(true);
}

void QtCanvas::line(CanvasPoint from, CanvasPoint to, double width, const Color& color,
                    double opacity) {
    const Qt::PenCapStyle ends = width < kThinLine ? Qt::FlatCap : Qt::RoundCap;
    painter_.setPen(QPen(toQt(color, opacity), width, Qt::SolidLine, ends));
    painter_.drawLine(toQt(from), toQt(to));
}

void QtCanvas::disc(CanvasPoint center, double radius, const Color& color) {
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(toQt(color));
    painter_.drawEllipse(toQt(center), radius, radius);
}

void QtCanvas::ring(CanvasPoint center, double radius, double width, const Color& color,
                    double opacity) {
    painter_.setPen(QPen(toQt(color, opacity), width));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawEllipse(toQt(center), radius, radius);
}

void QtCanvas::text(CanvasPoint start, const std::string& text, double size, bool bold,
                    const Color& color, const Color& halo) {
    const LabelLook look{pictureText(text), bold, toQt(color), toQt(halo)};
    if (labels_ != nullptr)
        labels_->draw(painter_, toQt(start), size, look);
    else
        drawLabel(painter_, toQt(start), size, look);
}

}  // namespace pelk
