#include "platform/desktop/qt/label_images.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <vector>

namespace pelk {
namespace {

/// The width of the outline's pen, a quarter of the font's size.
constexpr double kHalo = kPictureFontSize / 4.0;
/// The images of several screens full of labels.
constexpr qsizetype kMostBytes = 32 << 20;

/// Returns the room of a text in the font's own size, with the outline.
QRectF roomOf(const LabelLook& look) {
    const QRectF text = QFontMetricsF(pictureFont(look.bold)).boundingRect(look.text);
    return text.adjusted(-kHalo, -kHalo, kHalo, kHalo);
}

void drawLetters(QPainter& painter, const QPointF& start, double size, const LabelLook& look) {
    painter.save();
    painter.translate(start);
    painter.scale(size / kPictureFontSize, size / kPictureFontSize);
    painter.setPen(look.color);
    painter.setFont(pictureFont(look.bold));
    painter.drawText(QPointF(), look.text);
    painter.restore();
}

/// A pixel around another one, and how much of its outline it gets, from 0 to 256.
struct Neighbour {
    int right = 0;
    int down = 0;
    int share = 0;
};

std::vector<Neighbour> neighboursWithin(double radius) {
    std::vector<Neighbour> neighbours;
    const int reach = static_cast<int>(std::ceil(radius));
    for (int down = -reach; down <= reach; ++down)
        for (int right = -reach; right <= reach; ++right) {
            const double share = std::clamp(radius + 0.5 - std::hypot(right, down), 0.0, 1.0);
            if (share > 0)
                neighbours.push_back({right, down, qRound(share * 256)});
        }
    return neighbours;
}

/// Returns an image with the outline of what the other one shows: each of its pixels spreads to
/// those around it. Stroking the letters looks the same and takes ten times as long.
QImage outlineOf(const QImage& shown, double radius, const QColor& color) {
    QImage outline(shown.size(), QImage::Format_Alpha8);
    outline.fill(0);
    const std::vector<Neighbour> neighbours = neighboursWithin(radius);
    const QRect inside = outline.rect();
    for (int y = 0; y < shown.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(shown.constScanLine(y));
        for (int x = 0; x < shown.width(); ++x) {
            const int alpha = qAlpha(row[x]);
            if (alpha == 0)
                continue;
            for (const Neighbour& near : neighbours)
                if (inside.contains(x + near.right, y + near.down)) {
                    uchar& pixel = outline.scanLine(y + near.down)[x + near.right];
                    pixel = std::max(pixel, static_cast<uchar>(alpha * near.share / 257));
                }
        }
    }
    QImage colored(shown.size(), QImage::Format_ARGB32_Premultiplied);
    colored.fill(color);
    QPainter painter(&colored);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, outline);
    return colored;
}

}  // namespace

void drawLabel(QPainter& painter, const QPointF& start, double size, const LabelLook& look) {
    painter.save();
    painter.translate(start);
    painter.scale(size / kPictureFontSize, size / kPictureFontSize);
    // The outline comes first, so that it covers lines but no letters.
    QPainterPath path;
    path.addText({}, pictureFont(look.bold), look.text);
    painter.strokePath(path, QPen(look.halo, kHalo, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.restore();
    drawLetters(painter, start, size, look);
}

LabelImages::LabelImages() : images_(kMostBytes) {}

LabelImages::Image LabelImages::made(const Key& key) {
    const double scale = key.pixels / kPictureFontSize;
    const QRectF room = roomOf(key.look);
    const QRect pixels = QRectF(room.topLeft() * scale, room.size() * scale).toAlignedRect();
    QImage letters(pixels.size(), QImage::Format_ARGB32_Premultiplied);
    letters.fill(Qt::transparent);
    {
        QPainter painter(&letters);
        painter.setRenderHint(QPainter::Antialiasing);
        drawLetters(painter, -QPointF(pixels.topLeft()), key.pixels, key.look);
    }
    QImage label = outlineOf(letters, kHalo / 2 * scale, key.look.halo);
    QPainter(&label).drawImage(0, 0, letters);
    return {label, pixels.topLeft()};
}

/// Images share their pixels, so that a copy costs little.
LabelImages::Image LabelImages::imageOf(const Key& key) {
    if (const Image* const known = images_.object(key))
        return *known;
    Image image = made(key);
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
