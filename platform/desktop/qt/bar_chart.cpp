#include "platform/desktop/qt/bar_chart.h"

#include <QAccessibleWidget>
#include <QPainter>
#include <cmath>
#include <utility>

#include "platform/chart_layout.h"
#include "platform/desktop/qt/colors.h"

namespace pelk {
namespace {

QAccessibleInterface* chartForScreenReaders(const QString&, QObject* object) {
    auto* const chart = dynamic_cast<ChartWidget*>(object);
    return chart == nullptr ? nullptr : new QAccessibleWidget(chart, QAccessible::Chart);
}

QRect toQt(const Rect& place) {
    return {place.left, place.top, place.width, place.height};
}

int toQt(ChartAlign align) {
    return align == ChartAlign::Left     ? Qt::AlignLeft
           : align == ChartAlign::Center ? Qt::AlignHCenter
                                         : Qt::AlignRight;
}

/// Rounds up, because a text that lacks a part of a pixel is cut.
int widthOf(const std::string& text, const QFontMetricsF& metrics) {
    return static_cast<int>(std::ceil(metrics.horizontalAdvance(QString::fromStdString(text))));
}

}  // namespace

ChartWidget::ChartWidget(QWidget* parent) : QWidget(parent) {
    // Qt keeps a factory once, however often it is installed.
    QAccessible::installFactory(chartForScreenReaders);
}

void ChartWidget::setContent(ChartContent content) {
    content_ = std::move(content);
    setAccessibleDescription(QString::fromStdString(content_.description));
    update();
}

void ChartWidget::paintEvent(QPaintEvent*) {
    const QFontMetrics metrics = fontMetrics();
    const ChartLayout layout =
        layOut(content_, {{width(), height()}, metrics.height(), [&](const std::string& text) {
                              return widthOf(text, metrics);
                          }});
    const QColor text = palette().color(QPalette::WindowText);
    const ChartColors colors = chartColors(fromQt(text), fromQt(palette().color(QPalette::Window)));
    QPainter painter(this);
    for (const Rect& line : layout.scaleLines)
        painter.fillRect(toQt(line), toQt(colors.scaleLine));
    for (const ChartBox& box : layout.boxes)
        painter.fillRect(toQt(box.place), toQt(box.isAbove ? colors.above : colors.below));
    painter.fillRect(toQt(layout.middleLine), text);
    painter.setPen(text);
    for (const ChartText& shown : layout.texts)
        painter.drawText(toQt(shown.place), toQt(shown.align) | Qt::AlignVCenter,
                         metrics.elidedText(QString::fromStdString(shown.text), Qt::ElideRight,
                                            shown.place.width));
}

}  // namespace pelk
