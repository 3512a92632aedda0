#include <gtest/gtest.h>

#include <QApplication>
#include <QIcon>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <QWindow>
#include <algorithm>

#include "platform/desktop/qt/control.h"
#include "platform/desktop/qt/images.h"
#include "platform/desktop/qt/toolkit.h"
#include "platform/desktop/qt/twip_scale.h"
#include "tests/support/test_platform.h"

namespace pelk {

namespace {

template <class Widget, class Shown>
Widget& native(Shown& shown) {
    return dynamic_cast<Widget&>(dynamic_cast<NativeWidget&>(shown).nativeWidget());
}

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
        case Key::Asterisk:
            break;
    }
    return Qt::Key_Asterisk;
}

/// An invalid index, and a failed test, when there is no such row.
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

TreeImage imageOf(const QModelIndex& index) {
    const QIcon icon = index.data(Qt::DecorationRole).value<QIcon>();
    if (icon.isNull())
        return TreeImage::None;
    for (const TreeImage image :
         {TreeImage::Contact, TreeImage::Many, TreeImage::One, TreeImage::Two, TreeImage::Three})
        if (icon.cacheKey() == treeIcon(image).cacheKey())
            return image;
    ADD_FAILURE() << "An unknown image";
    return TreeImage::None;
}

std::optional<Color> colorOf(const QModelIndex& index) {
    const QVariant value = index.data(Qt::ForegroundRole);
    if (!value.isValid())
        return std::nullopt;
    const QColor color = value.value<QBrush>().color();
    return Color{static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
                 static_cast<std::uint8_t>(color.blue())};
}

/// Clicks at a point of the widget, by way of its window: a modal window keeps the click away, and
/// so does a widget in front.
void clickAt(QWidget& widget, const QPoint& point) {
    QWidget& top = *widget.window();
    if (widget.isVisible() && widget.rect().contains(point))
        QTest::mouseClick(top.windowHandle(), Qt::LeftButton, {}, widget.mapTo(&top, point));
    else
        ADD_FAILURE() << "A click on what is not shown";
}

/// Scrolls to the row, and returns its place in the viewport.
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

/// The modal window, else the one that was shown last; its child of that kind and text, or null.
template <class Widget>
Widget* findInActiveWindow(const std::string& text) {
    QWidget* window = QApplication::activeModalWidget();
    for (QWidget* other : QApplication::topLevelWidgets())
        if (window == nullptr && other->isVisible() && !other->windowTitle().isEmpty())
            window = other;
    if (window != nullptr)
        for (Widget* widget : window->findChildren<Widget*>())
            if (widget->text().toStdString() == text)
                return widget;
    return nullptr;
}

class QtDriver : public Driver {
 public:
    void settle() override { QCoreApplication::processEvents(); }
    void later(std::function<void()> act) override { QTimer::singleShot(0, std::move(act)); }

    bool isWindowShown(const std::string& caption) override {
        const QWidgetList windows = QApplication::topLevelWidgets();
        return std::any_of(windows.begin(), windows.end(), [&caption](const QWidget* window) {
            return window->isVisible() && window->windowTitle().toStdString() == caption;
        });
    }
    bool isLabelShown(const std::string& text) override {
        return findInActiveWindow<QLabel>(text) != nullptr;
    }
    void clickButton(const std::string& text) override {
        if (auto* const button = findInActiveWindow<QPushButton>(text))
            clickAt(*button, button->rect().center());
        else
            ADD_FAILURE() << "No button " << text;
    }

    bool isVisible(Window& window) override { return native<QWidget>(window).isVisible(); }
    std::string captionOf(Window& window) override {
        QWidget& widget = native<QWidget>(window);
        widget.winId();  // creates the native window
        return widget.windowHandle()->title().toStdString();
    }
    void resize(Window& window, Size inner) override {
        native<QWidget>(window).resize(scale_.pixels(inner));
        settle();
    }
    void close(Window& window) override {
        QWindow& top = *native<QWidget>(window).windowHandle();
        // A modal window keeps the user away from the button, but not this call.
        const QWindow* modal = QGuiApplication::modalWindow();
        if (modal == nullptr || modal == &top)
            top.close();
        settle();
    }
    void press(Window& window, Key key) override {
        QTest::keyClick(native<QWidget>(window).windowHandle(), toQt(key));
    }
    Rect boundsOf(Control& control) override {
        const QWidget& widget = native<QWidget>(control);
        return scale_.twips(QRect(widget.mapTo(widget.window(), QPoint()), widget.size()));
    }
    bool isEnabled(Control& control) override { return native<QWidget>(control).isEnabled(); }
    bool hasFocus(Control& control) override {
        // Within its window: the window system may be slow to make that the active one.
        const QWidget& widget = native<QWidget>(control);
        return widget.window()->focusWidget() == &widget;
    }
    void giveFocus(Control& control) override { native<QWidget>(control).setFocus(); }
    std::string textOf(Label& label) override { return native<QLabel>(label).text().toStdString(); }
    std::string textOf(Button& button) override {
        // "&&" shows one "&"; "&x" shows a marked "x".
        return native<QPushButton>(button)
            .text()
            .replace(QRegularExpression("&(.)"), "\\1")
            .toStdString();
    }
    bool showsWholeText(Label& label) override {
        const QLabel& widget = native<QLabel>(label);
        const QRect space = widget.contentsRect();
        const int flags =
            (widget.wordWrap() ? Qt::TextWordWrap : 0) | static_cast<int>(widget.alignment());
        return space.contains(widget.fontMetrics().boundingRect(space, flags, widget.text()));
    }
    bool showsWholeText(Button& button) override {
        const QPushButton& widget = native<QPushButton>(button);
        const QSize text = widget.fontMetrics().size(Qt::TextShowMnemonic, widget.text());
        return text.width() <= widget.width() && text.height() <= widget.height();
    }
    void click(Button& button) override {
        QPushButton& widget = native<QPushButton>(button);
        clickAt(widget, widget.rect().center());
    }
    Progress progressOf(ProgressBar& bar) override {
        const QProgressBar& widget = native<QProgressBar>(bar);
        return {widget.minimum(), widget.maximum(), widget.value()};
    }

    std::vector<TreeRow> rows(TreeView& tree, const TreePath& parent) override {
        const QTreeView& view = native<QTreeView>(tree);
        const QModelIndex above = indexAt(view, parent);
        std::vector<TreeRow> rows;
        for (int row = 0; row < view.model()->rowCount(above); ++row) {
            const QModelIndex index = view.model()->index(row, 0, above);
            rows.push_back({index.data().toString().toStdString(), colorOf(index), imageOf(index),
                            view.model()->hasChildren(index), view.isExpanded(index)});
        }
        return rows;
    }
    void expand(TreeView& tree, const TreePath& row) override { clickExpander(tree, row, false); }
    void collapse(TreeView& tree, const TreePath& row) override { clickExpander(tree, row, true); }
    void clickRow(TreeView& tree, const TreePath& row) override {
        QTreeView& view = native<QTreeView>(tree);
        clickAt(*view.viewport(), scrolledTo(view, row).center());
    }
    bool isInView(TreeView& tree, const TreePath& row) override {
        QTreeView& view = native<QTreeView>(tree);
        const QRect place = view.visualRect(indexAt(view, row));
        return place.isValid() && place.top() >= 0 && place.bottom() <= view.viewport()->height();
    }
    std::optional<std::string> selectedText(TreeView& tree) override {
        const QModelIndexList rows = native<QTreeView>(tree).selectionModel()->selectedIndexes();
        EXPECT_LE(rows.size(), 1);
        if (rows.isEmpty())
            return std::nullopt;
        return rows.first().data().toString().toStdString();
    }

 private:
    static void clickExpander(TreeView& tree, const TreePath& row, bool expanded) {
        QTreeView& view = native<QTreeView>(tree);
        const QModelIndex index = indexAt(view, row);
        EXPECT_TRUE(view.model()->hasChildren(index)) << "The row has no expander";
        EXPECT_EQ(view.isExpanded(index), expanded) << testing::PrintToString(row);
        const QRect place = scrolledTo(view, row);
        clickAt(*view.viewport(), {place.left() - view.indentation() / 2, place.center().y()});
    }

    const TwipScale scale_ = TwipScale::ofApplication();
};

}  // namespace

std::unique_ptr<Toolkit> makeToolkit(Dialogs& dialogs, const Language& language) {
    return std::make_unique<QtToolkit>(dialogs, language);
}

std::unique_ptr<Driver> makeDriver() {
    return std::make_unique<QtDriver>();
}

}  // namespace pelk
