#include "platform/desktop/qt/label_images.h"

#include <QFontMetricsF>
#include <QPainterPath>

namespace pelk {
namespace {

/// The width of the outline's pen, a quarter of the font's size.
constexpr double kHalo = kPictureFontSize / 4.0;
/// The images of several screens full of labels.
constexpr qsizetype kMostBytes = 32 << 20;

QPainterPath pathOf(const LabelLook& look) {
    QPainterPath path;
    path.addText({}, pictureFont(look.bold), look.text);
    return path;
}

/// Returns the room of a text in the font's own size, with the outline.
QRectF roomOf(const LabelLook& look) {
    const QRectF text = QFontMetricsF(pictureFont(look.bold)).boundingRect(look.text);
    return text.united(pathOf(look).boundingRect()).adjusted(-kHalo, -kHalo, kHalo, kHalo);
}

}  // namespace

void drawLabel(QPainter& painter, const QPointF& start, double size, const LabelLook& look) {
    painter.save();
    painter.translate(start);
    painter.scale(size / kPictureFontSize, size / kPictureFontSize);
    // The outline comes first, so that it covers lines but no letters.
    painter.strokePath(pathOf(look),
                       QPen(look.halo, kHalo, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setPen(look.color);
    painter.setFont(pictureFont(look.bold));
    painter.drawText(QPointF(), look.text);
    painter.restore();
}

LabelImages::LabelImages() : images_(kMostBytes) {}

LabelImages::Image LabelImages::made(const Key& key) {
    const double scale = key.pixels / kPictureFontSize;
    const QRectF room = roomOf(key.look);
    const QRect pixels = QRectF(room.topLeft() * scale, room.size() * scale).toAlignedRect();
    QImage image(pixels.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawLabel(painter, -QPointF(pixels.topLeft()), key.pixels, key.look);
    return {image, pixels.topLeft()};
}

/// Images share their pixels, so that a copy costs little.
LabelImages::Image LabelImages::imageOf(const Key& key) {
    if (const Image* const known = images_.object(key))
        return *known;
    const Image image = made(key);
    images_.insert(key, new Image(image), image.pixels.sizeInBytes());
    return image;
}

void LabelImages::draw(QPainter& painter, const QPointF& start, double size,
                       const LabelLook& look) {
    const QTransform device = painter.deviceTransform();
    Image image = imageOf({look, size * device.m11()});
    image.pixels.setDevicePixelRatio(painter.device()->devicePixelRatioF());
    const QPoint corner = device.map(start).toPoint() + image.corner;
    painter.setWorldMatrixEnabled(false);
    painter.drawImage(painter.deviceTransform().inverted().map(QPointF(corner)), image.pixels);
    painter.setWorldMatrixEnabled(true);
}

}  // namespace pelk
