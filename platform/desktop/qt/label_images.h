#pragma once
// Texts with an outline. Outlines are slow to draw, so the texts of a window are kept as images.

#include <QCache>
#include <QColor>
#include <QImage>
#include <QPainter>

#include "platform/desktop/qt/picture_font.h"

namespace pelk {

struct LabelLook {
    QString text;
    bool bold = false;
    QColor color;
    QColor halo;

    friend bool operator==(const LabelLook&, const LabelLook&) = default;
};

/// Draws the text with its left end at `start`, on the baseline; as text on devices that have it.
void drawLabel(QPainter& painter, const QPointF& start, double size, const LabelLook& look);

class LabelImages {
 public:
    LabelImages();
    /// Draws the same at whole pixels of the device. Requires: the painter is not rotated.
    void draw(QPainter& painter, const QPointF& start, double size, const LabelLook& look);

 private:
    struct Key {
        LabelLook look;
        /// The pixels of the font.
        double pixels = 0;

        friend bool operator==(const Key&, const Key&) = default;
        friend std::size_t qHash(const Key& key, std::size_t seed) {
            return qHashMulti(seed, key.look.text, key.pixels, key.look.bold, key.look.color.rgb(),
                              key.look.halo.rgb());
        }
    };
    struct Image {
        QImage pixels;
        /// Where the image begins, in pixels from the left end of the baseline.
        QPoint corner;
    };

    static Image made(const Key& key);
    Image imageOf(const Key& key);

    QCache<Key, Image> images_;
};

}  // namespace pelk
