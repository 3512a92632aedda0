#include "platform/desktop/qt/images.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <array>

#include "platform/desktop/qt/colors.h"
#include "platform/readable_color.h"

namespace pelk {

namespace {

const QColor kPerson(62, 104, 158);
const QColor kPersonBehind(134, 168, 208);

/// Draws with coordinates from 0 to 16 in both directions.
class Brush {
 public:
    /// If `only` is a valid colour, everything is drawn in it.
    Brush(QPainter& painter, const QColor& only) : painter_(painter), only_(only) {}

    void fill(const QPainterPath& path, const QColor& color) const {
        painter_.fillPath(path, only_.isValid() ? only_ : color);
    }
    void outline(const QPainterPath& path, const QColor& color) const {
        QPen pen(only_.isValid() ? only_ : color, 1);
        pen.setJoinStyle(Qt::MiterJoin);
        painter_.strokePath(path, pen);
    }

 private:
    QPainter& painter_;
    QColor only_;
};

using Drawing = void (*)(const Brush&);

/// A head and shoulders whose lower edge is at `bottom`.
QPainterPath person(double middle, double bottom, double width) {
    const double half = width / 2;
    const double radius = width * 0.26;
    const double neck = bottom - width * 0.52;
    QPainterPath path;
    path.moveTo(middle - half, bottom);
    path.cubicTo(middle - half, neck + half * 0.2, middle - half * 0.6, neck, middle, neck);
    path.cubicTo(middle + half * 0.6, neck, middle + half, neck + half * 0.2, middle + half,
                 bottom);
    path.closeSubpath();
    path.addEllipse(QPointF(middle, neck - radius * 1.15), radius, radius);
    return path;
}

void drawContact(const Brush& brush) {
    brush.fill(person(8, 15, 12), kPerson);
}

/// The part of a person that is visible behind `front`, with a gap between the two.
QPainterPath personBehind(const QPainterPath& front) {
    QPainterPathStroker gap;
    gap.setWidth(2);
    // Qt intersects paths with limited accuracy, so they are enlarged first.
    const QTransform enlarge = QTransform::fromScale(64, 64);
    const QPainterPath hidden = enlarge.map(front).united(enlarge.map(gap.createStroke(front)));
    const QPainterPath behind = enlarge.map(person(11.2, 12.5, 9)).subtracted(hidden);
    return enlarge.inverted().map(behind);
}

void drawMany(const Brush& brush) {
    // Computed once: intersecting paths takes longer than painting a whole window.
    static const QPainterPath front = person(5.5, 15, 10);
    static const QPainterPath behind = personBehind(front);
    brush.fill(behind, kPersonBehind);
    brush.fill(front, kPerson);
}

/// Returns the colour as it can be seen in a tree of the user's palette.
QColor visibleColor(const QColor& color) {
    const QColor background = QGuiApplication::palette().base().color();
    return toQt(readableColor(fromQt(color), fromQt(background)));
}

/// Draws three bars that rise to the right, the first `filled` of them solid.
void drawBars(const Brush& brush, int filled, const QColor& color) {
    for (int bar = 0; bar < 3; ++bar) {
        const double height = 4 + 4 * bar;
        QPainterPath path;
        path.addRect(QRectF(1 + 5 * bar, 15 - height, 4, height));
        if (bar < filled) {
            brush.fill(path, visibleColor(color));
        } else {
            QPainterPath frame;
            frame.addRect(path.boundingRect().adjusted(0.5, 0.5, -0.5, -0.5));
            brush.outline(frame, visibleColor(QColor(140, 140, 140)));
        }
    }
}

void drawStrong(const Brush& brush) {
    drawBars(brush, 3, QColor(214, 32, 32));
}
void drawMedium(const Brush& brush) {
    drawBars(brush, 2, QColor(40, 72, 214));
}
void drawWeak(const Brush& brush) {
    drawBars(brush, 1, QColor(110, 110, 110));
}

void drawWindow(const Brush& brush) {
    QPainterPath ground;
    ground.addRoundedRect(QRectF(0, 0, 16, 16), 3, 3);
    brush.fill(ground, kPerson);
    QPainterPath link;
    link.moveTo(4.5, 11.5);
    link.lineTo(11.5, 4.5);
    QPainterPathStroker stroker;
    stroker.setWidth(1.6);
    brush.fill(stroker.createStroke(link), kPersonBehind);
    QPainterPath ends;
    ends.addEllipse(QPointF(4.5, 11.5), 2.6, 2.6);
    ends.addEllipse(QPointF(11.5, 4.5), 2.6, 2.6);
    brush.fill(ends, Qt::white);
}

class DrawnIcon : public QIconEngine {
 public:
    explicit DrawnIcon(Drawing drawing) : drawing_(drawing) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 16.0, rect.height() / 16.0);
        if (mode == QIcon::Disabled)
            painter->setOpacity(0.4);
        const QColor only = mode == QIcon::Selected
                                ? QGuiApplication::palette().highlightedText().color()
                                : QColor();
        drawing_(Brush(*painter, only));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new DrawnIcon(drawing_); }

 private:
    Drawing drawing_;
};

QIcon drawn(Drawing drawing) {
    return QIcon(new DrawnIcon(drawing));
}

}  // namespace

const QIcon& treeIcon(TreeImage image) {
    static const std::array<QIcon, 6> icons = {QIcon(),           drawn(drawContact),
                                               drawn(drawMany),   drawn(drawStrong),
                                               drawn(drawMedium), drawn(drawWeak)};
    return icons.at(static_cast<std::size_t>(image));
}

const QIcon& programIcon() {
    static const QIcon icon = drawn(drawWindow);
    return icon;
}

}  // namespace pelk
