#include "tests/support/qt_acts.h"

#include <gtest/gtest.h>

#include <QIcon>
#include <QPainter>
#include <QTest>
#include <QWindow>
#include <algorithm>

#include "platform/desktop/qt/images.h"

namespace pelk {

namespace {

constexpr auto kImages = {TreeImage::Contact, TreeImage::Many, TreeImage::One, TreeImage::Two,
                          TreeImage::Three};

}  // namespace

Qt::Key toQt(Key key) {
    switch (key) {
        case Key::Enter:
            return Qt::Key_Return;
        case Key::Escape:
            return Qt::Key_Escape;
        case Key::Tab:
            return Qt::Key_Tab;
        case Key::Up:
            return Qt::Key_Up;
        case Key::Down:
            return Qt::Key_Down;
        case Key::Left:
            return Qt::Key_Left;
        case Key::Right:
            return Qt::Key_Right;
        case Key::Plus:
            return Qt::Key_Plus;
        case Key::Minus:
            return Qt::Key_Minus;
        case Key::Delete:
            return Qt::Key_Delete;
        case Key::Asterisk:
            break;
    }
    return Qt::Key_Asterisk;
}

QModelIndex indexAt(const QTreeView& view, const TreePath& path) {
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

TreeImage imageOfRow(const QModelIndex& index) {
    const QIcon icon = index.data(Qt::DecorationRole).value<QIcon>();
    if (icon.isNull())
        return TreeImage::None;
    for (const TreeImage image : kImages)
        if (icon.cacheKey() == treeIcon(image).cacheKey())
            return image;
    ADD_FAILURE() << "An unknown image";
    return TreeImage::None;
}

std::optional<Color> colorOfRow(const QModelIndex& index) {
    const QVariant value = index.data(Qt::ForegroundRole);
    if (!value.isValid())
        return std::nullopt;
    const QColor color = value.value<QBrush>().color();
    return Color{static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
                 static_cast<std::uint8_t>(color.blue())};
}

void clickAt(QWidget& widget, const QPoint& point, Qt::MouseButton button,
             Qt::KeyboardModifiers modifiers) {
    QWidget& top = *widget.window();
    if (widget.isVisible() && widget.rect().contains(point))
        QTest::mouseClick(top.windowHandle(), button, modifiers, widget.mapTo(&top, point));
    else
        ADD_FAILURE() << "A click on what is not shown";
}

QRect scrolledTo(QTreeView& view, const TreePath& row) {
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

TreeImage imageIn(QWidget& widget) {
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

}  // namespace pelk
