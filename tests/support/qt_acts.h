#pragma once
// What the driver does to widgets of Qt and reads from them.

#include <QRegularExpression>
#include <QTreeView>
#include <optional>
#include <string>

#include "tests/support/driver.h"

namespace pelk {

Qt::Key toQt(Key key);

/// An invalid index, and a failed test, when there is no such row.
QModelIndex indexAt(const QTreeView& view, const TreePath& path);
TreeImage imageOfRow(const QModelIndex& index);
std::optional<Color> colorOfRow(const QModelIndex& index);
/// Scrolls to the row, and returns its place in the viewport.
QRect scrolledTo(QTreeView& view, const TreePath& row);

/// Clicks at a point of the widget, by way of its window: a modal window keeps the click away, and
/// so does a widget in front.
void clickAt(QWidget& widget, const QPoint& point, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers modifiers = {});

/// The image that fills the widget.
TreeImage imageIn(QWidget& widget);

/// "&&" shows one "&"; "&x" shows a marked "x".
template <class Shown>
std::string shownText(const Shown& shown) {
    return shown.text().replace(QRegularExpression("&(.)"), "\\1").toStdString();
}

}  // namespace pelk
