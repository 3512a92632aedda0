#pragma once
// The driver's actions on Qt widgets.

#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QRegularExpression>
#include <QTest>
#include <QTreeView>
#include <QWindow>
#include <algorithm>

#include "platform/desktop/qt/images.h"
#include "tests/support/driver.h"

namespace pelk {

inline constexpr auto kImages = {TreeImage::Contact, TreeImage::Many, TreeImage::One,
                                 TreeImage::Two, TreeImage::Three};

/// In the order of `Key`.
inline constexpr Qt::Key kQtKeys[] = {
    Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,   Qt::Key_Up,       Qt::Key_Down,   Qt::Key_Left,
    Qt::Key_Right,  Qt::Key_Plus,   Qt::Key_Minus, Qt::Key_Asterisk, Qt::Key_Delete, Qt::Key_Home};

/// Returns an invalid index and fails the test when there is no such row.
inline QModelIndex indexAt(const QTreeView& view, const TreePath& path) {
    QModelIndex index;
    for (const int row : path) {
        index = view.model()->index(row, 0, index);
        if (!index.isValid()) {
            ADD_FAILURE() << "The tree has no row " << testing::PrintToString(path);
            return index;
        }
    }
    return index;
}

inline TreeImage imageOfRow(const QModelIndex& index) {
    const QIcon icon = index.data(Qt::DecorationRole).value<QIcon>();
    if (icon.isNull())
        return TreeImage::None;
    for (const TreeImage image : kImages)
        if (icon.cacheKey() == treeIcon(image).cacheKey())
            return image;
    ADD_FAILURE() << "An unknown image";
    return TreeImage::None;
}

inline std::optional<Color> colorOfRow(const QModelIndex& index) {
    const QVariant value = index.data(Qt::ForegroundRole);
    if (!value.isValid())
        return std::nullopt;
    const QColor color = value.value<QBrush>().color();
    return Color{static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
                 static_cast<std::uint8_t>(color.blue())};
}

/// Clicks at a point of the widget through its window, so that a modal window or a widget in front
/// blocks the click.
inline void clickAt(QWidget& widget, const QPoint& point, Qt::MouseButton button = Qt::LeftButton,
                    Qt::KeyboardModifiers modifiers = {}) {
    QWidget& top = *widget.window();
    if (widget.isVisible() && widget.rect().contains(point))
        QTest::mouseClick(top.windowHandle(), button, modifiers, widget.mapTo(&top, point));
    else
        ADD_FAILURE() << "A click on what is not shown";
}

/// Scrolls to the row and returns its rectangle in the viewport.
inline QRect scrolledTo(QTreeView& view, const TreePath& row) {
    const QModelIndex index = indexAt(view, row);
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) {
        if (view.isExpanded(above))
            continue;
        ADD_FAILURE() << "Row " << testing::PrintToString(row) << " is under a closed one";
        return {};
    }
    view.scrollTo(index);
    return view.visualRect(index);
}

/// Returns the image that fills the widget.
inline TreeImage imageIn(QWidget& widget) {
    const int side = std::min(widget.width(), widget.height());
    const QRect square((widget.width() - side) / 2, (widget.height() - side) / 2, side, side);
    const auto imageFilledBy = [&widget](const auto& fill) {
        QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(widget.palette().window().color());
        fill(image);
        return image;
    };
    const QImage shown = imageFilledBy([&widget](QImage& image) { widget.render(&image); });
    for (const TreeImage image : kImages)
        if (shown == imageFilledBy([&](QImage& drawn) {
                QPainter painter(&drawn);
                treeIcon(image).paint(&painter, square);
            }))
            return image;
    return TreeImage::None;
}

/// "&&" shows one "&"; "&x" shows an underlined "x".
template <class Shown>
std::string shownText(const Shown& shown) {
    return shown.text().replace(QRegularExpression("&(.)"), "\\1").toStdString();
}

/// A label shows "&" as it is.
inline std::string shownText(const QLabel& label) {
    return label.text().toStdString();
}

}  // namespace pelk
