#include "platform/desktop/qt/image_canvas.h"

#include <QSemaphore>
#include <QThreadPool>

namespace pelk {

ImageCanvas::ImageCanvas(QImage& image, double scale, LabelImages* labels)
    : pixels_(image.bits()),
      image_(image),
      scale_(scale),
      painter_(&image),
      canvas_(painter_, labels) {
    painter_.scale(scale, scale);
}

void ImageCanvas::fill(const Color& color) {
    shapes_.clear();
    canvas_.fill(color);
}

void ImageCanvas::line(CanvasPoint from, CanvasPoint to, double width, const Color& color,
                       double opacity) {
    shapes_.push_back({from, to, width, color, opacity});
}

void ImageCanvas::disc(CanvasPoint center, double radius, const Color& color) {
    shapes_.push_back({center, center, 2 * radius, color, 1});
}

void ImageCanvas::ring(CanvasPoint center, double radius, double width, const Color& color,
                       double opacity) {
    drawShapes();
    canvas_.ring(center, radius, width, color, opacity);
}

void ImageCanvas::text(CanvasPoint start, const std::string& text, double size, bool bold,
                       const Color& color, const Color& halo) {
    drawShapes();
    canvas_.text(start, text, size, bold, color, halo);
}

/// Each thread has half of the rows. They are of Qt's pool: on other threads, Qt shares the pixels
/// of each single line among the pool, which takes more than twice as long.
void ImageCanvas::drawShapes() {
    if (shapes_.empty())
        return;
    const int half = image_.height() / 2;
    QSemaphore done;
    QThreadPool& pool = *QThreadPool::globalInstance();
    pool.start([&] { drawShapesInRows(0, half), done.release(); });
    pool.start([&] { drawShapesInRows(half, image_.height()), done.release(); });
    done.acquire(2);
    shapes_.clear();
}

void ImageCanvas::drawShapesInRows(int first, int end) const {
    const qsizetype stride = image_.bytesPerLine();
    QImage rows(pixels_ + first * stride, image_.width(), end - first, stride, image_.format());
    QPainter painter(&rows);
    painter.translate(0, -first);
    painter.scale(scale_, scale_);
    QtCanvas canvas(painter);
    for (const Shape& shape : shapes_)
        if (shape.from == shape.to)
            canvas.disc(shape.from, shape.width / 2, shape.color);
        else
            canvas.line(shape.from, shape.to, shape.width, shape.color, shape.opacity);
}

}  // namespace pelk
