#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <QWindow>
#include <algorithm>
#include <cstdlib>

#include "platform/desktop/qt/control.h"
#include "platform/desktop/qt/toolkit.h"
#include "platform/desktop/qt/twip_scale.h"
#include "tests/support/qt_acts.h"
#include "tests/support/test_platform.h"

namespace pelk {

namespace {

template <class Widget, class Shown>
Widget& native(Shown& shown) {
    return dynamic_cast<Widget&>(dynamic_cast<NativeWidget&>(shown).nativeWidget());
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
    std::string textOf(Button& button) override { return shownText(native<QPushButton>(button)); }
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

    TreeImage imageOf(Picture& picture) override { return imageIn(native<QWidget>(picture)); }
    std::string textOf(OptionButton& button) override {
        return shownText(native<QRadioButton>(button));
    }
    bool showsWholeText(OptionButton& button) override {
        const QRadioButton& widget = native<QRadioButton>(button);
        const QSize needed = widget.minimumSizeHint();
        return needed.width() <= widget.width() && needed.height() <= widget.height();
    }
    bool isChecked(OptionButton& button) override {
        return native<QRadioButton>(button).isChecked();
    }
    void click(OptionButton& button) override {
        QRadioButton& widget = native<QRadioButton>(button);
        clickAt(widget, {widget.height() / 2, widget.height() / 2});
    }
    std::string textOf(TextBox& box) override {
        return native<QLineEdit>(box).displayText().toStdString();
    }
    void type(TextBox& box, const std::string& text) override {
        QLineEdit& widget = native<QLineEdit>(box);
        widget.setFocus();
        widget.selectAll();
        QWindow* const window = widget.window()->windowHandle();
        if (text.empty())
            QTest::keyClick(window, Qt::Key_Delete);
        for (const QChar letter : QString::fromStdString(text))
            QTest::sendKeyEvent(QTest::Click, window, Qt::Key_unknown, letter, {});
    }
    int valueOf(Slider& slider) override { return native<QSlider>(slider).value(); }
    void move(Slider& slider, int value) override {
        QSlider& widget = native<QSlider>(slider);
        widget.setFocus();
        for (int steps = std::abs(value - widget.value()); steps > 0; --steps)
            QTest::keyClick(widget.window()->windowHandle(),
                            value > widget.value() ? Qt::Key_Right : Qt::Key_Left);
    }
    std::vector<std::string> rowsOf(ListView& list) override {
        const QListView& view = native<QListView>(list);
        std::vector<std::string> rows;
        for (int row = 0; row < view.model()->rowCount(); ++row)
            rows.push_back(view.model()->index(row, 0).data().toString().toStdString());
        return rows;
    }
    void selectRows(ListView& list, const std::vector<int>& rows) override {
        QListView& view = native<QListView>(list);
        view.clearSelection();
        for (const int row : rows) {
            const QModelIndex index = view.model()->index(row, 0);
            view.scrollTo(index);
            clickAt(*view.viewport(), view.visualRect(index).center(), Qt::LeftButton,
                    row == rows.front() ? Qt::NoModifier : Qt::ControlModifier);
        }
    }
    Pointer pointerOver(Control& control) override {
        const QWidget& widget = native<QWidget>(control);
        const QWidget* const inner = widget.childAt(widget.rect().center());
        const QCursor* const overall = QGuiApplication::overrideCursor();
        const QCursor shown = overall != nullptr ? *overall
                              : inner != nullptr ? inner->cursor()
                                                 : widget.cursor();
        return shown.shape() == Qt::WaitCursor ? Pointer::Busy : Pointer::Arrow;
    }

    std::vector<TreeRow> rows(TreeView& tree, const TreePath& parent) override {
        const QTreeView& view = native<QTreeView>(tree);
        const QModelIndex above = indexAt(view, parent);
        std::vector<TreeRow> rows;
        for (int row = 0; row < view.model()->rowCount(above); ++row) {
            const QModelIndex index = view.model()->index(row, 0, above);
            rows.push_back({index.data().toString().toStdString(), colorOfRow(index),
                            imageOfRow(index), view.model()->hasChildren(index),
                            view.isExpanded(index)});
        }
        return rows;
    }
    void expand(TreeView& tree, const TreePath& row) override { clickExpander(tree, row, false); }
    void collapse(TreeView& tree, const TreePath& row) override { clickExpander(tree, row, true); }
    void clickRow(TreeView& tree, const TreePath& row) override {
        QTreeView& view = native<QTreeView>(tree);
        clickAt(*view.viewport(), scrolledTo(view, row).center());
    }
    std::vector<std::string> menuAt(TreeView& tree, const TreePath& row) override {
        std::vector<std::string> captions;
        const QMenu* const menu = openMenu(tree, row);
        for (const QAction* action : actionsOf(menu))
            captions.push_back(shownText(*action));
        if (menu != nullptr)
            QTest::keyClick(menu->windowHandle(), Qt::Key_Escape);
        return captions;
    }
    void chooseAt(TreeView& tree, const TreePath& row, const std::string& caption) override {
        const QMenu* const menu = openMenu(tree, row);
        for (QAction* action : actionsOf(menu))
            if (shownText(*action) == caption) {
                QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {},
                                  menu->actionGeometry(action).center());
                settle();
                return;
            }
        ADD_FAILURE() << "No item " << caption;
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
    static QMenu* openMenu(TreeView& tree, const TreePath& row) {
        QTreeView& view = native<QTreeView>(tree);
        clickAt(*view.viewport(), scrolledTo(view, row).center(), Qt::RightButton);
        QMenu* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        EXPECT_FALSE(menu != nullptr && menu->isEmpty()) << "A menu without items";
        return menu;
    }
    static QList<QAction*> actionsOf(const QMenu* menu) {
        QList<QAction*> actions = menu != nullptr ? menu->actions() : QList<QAction*>();
        actions.removeIf([](const QAction* action) { return !action->isVisible(); });
        return actions;
    }
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
