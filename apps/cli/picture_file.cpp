#include "apps/cli/picture_file.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QLoggingCategory>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <array>

#include "map/svg.h"
#include "platform/error.h"

namespace pelk {
namespace {

constexpr double kHalo = 3;

/// Fonts need Qt's application object, and without a display a platform that needs none.
class Fonts {
 public:
    Fonts() {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        // Qt warns of a missing session, which a picture does not need.
        QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
        application_.emplace(count_, words_.data());
    }

 private:
    int count_ = 1;
    std::array<char, 5> name_{"pelk"};
    std::array<char*, 2> words_{name_.data(), nullptr};
    std::optional<QGuiApplication> application_;
};

QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QColor toQt(const Color& color, double opacity = 1) {
    QColor qt(color.red, color.green, color.blue);
    qt.setAlphaF(static_cast<float>(opacity));
    return qt;
}

QPointF toQt(Point point) {
    return {point.x, point.y};
}

QFont fontOf(double size, bool bold) {
    QFont font(QStringLiteral("sans-serif"));
    font.setPixelSize(qRound(size));
    font.setBold(bold);
    // Hints would change the widths with the resolution.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

/// Measures in bold, which is the widest that a text is drawn in.
double measuredWidth(std::string_view text) {
    constexpr double size = 100;
    return QFontMetricsF(fontOf(size, true)).horizontalAdvance(toQt(text)) / size;
}

void drawCircle(QPainter& painter, const SceneCircle& circle) {
    painter.drawEllipse(toQt(circle.center), circle.radius, circle.radius);
}

/// Draws the outline first, so that it covers lines but no letters.
void drawText(QPainter& painter, const SceneText& text, const Scene& scene) {
    QPainterPath path;
    path.addText(toQt(text.start), fontOf(text.size, text.bold), toQt(text.text));
    painter.strokePath(
        path, QPen(toQt(scene.background), kHalo, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setPen(toQt(scene.textColor));
    painter.setFont(fontOf(text.size, text.bold));
    painter.drawText(toQt(text.start), toQt(text.text));
}

std::string pngOf(const Scene& scene, PictureSize size) {
    QImage image(size.width, size.height, QImage::Format_RGB32);
    if (image.isNull())
        throw Error("The picture is too large for the memory.");
    {
        QPainter painter(&image);
        drawScene(painter, scene);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG"))
        throw Error("The picture is too large for the memory.");
    return bytes.toStdString();
}

std::string pdfOf(const Scene& scene, PictureSize size) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(72);
        writer.setPageSize(QPageSize(QSizeF(size.width, size.height), QPageSize::Point));
        writer.setPageMargins(QMarginsF());
        QPainter painter(&writer);
        drawScene(painter, scene);
    }
    return bytes.toStdString();
}

}  // namespace

void drawScene(QPainter& painter, const Scene& scene) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRectF(0, 0, scene.width, scene.height), toQt(scene.background));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(toQt(scene.ringColor, 0.5));
    for (const SceneCircle& ring : scene.rings)
        drawCircle(painter, ring);
    for (const SceneLine& line : scene.lines) {
        painter.setPen(
            QPen(toQt(line.color, line.opacity), line.width, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(toQt(line.from), toQt(line.to));
    }
    painter.setPen(toQt(scene.background));
    for (const SceneCircle& circle : scene.circles) {
        painter.setBrush(toQt(circle.fill));
        drawCircle(painter, circle);
    }
    for (const SceneText& text : scene.texts)
        drawText(painter, text, scene);
}

std::string pictureFile(const Arrangement& arrangement, SceneStyle style, PictureSize size,
                        PictureFormat format) {
    const auto sceneOf = [&] {
        return makeScene(arrangement, viewOfAll(arrangement, size.width, size.height, style),
                         style);
    };
    if (format == PictureFormat::Svg)
        return svgOf(sceneOf());
    const Fonts fonts;
    style.textWidth = measuredWidth;
    return format == PictureFormat::Png ? pngOf(sceneOf(), size) : pdfOf(sceneOf(), size);
}

}  // namespace pelk
