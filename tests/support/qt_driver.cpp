
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTextDocumentFragment>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>
#include <cstdlib>

#include "platform/desktop/qt/control.h"
#include "platform/desktop/qt/picture_output.h"
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

std::vector<std::uint32_t> pixelsOf(const QPixmap& picture) {
    const QImage image = picture.toImage().convertToFormat(QImage::Format_RGB32);
    const auto* const pixels = reinterpret_cast<const std::uint32_t*>(image.constBits());
    return {pixels, pixels + image.width() * image.height()};
}

/// Returns the child of that kind and text of the modal window, else of the window shown last; or
/// null.
template <class Widget>
Widget* findInActiveWindow(const std::string& text) {
    QWidget* window = QApplication::activeModalWidget();
    for (QWidget* other : QApplication::topLevelWidgets())
        if (window == nullptr && other->isVisible() && !other->windowTitle().isEmpty())
            window = other;
    if (window != nullptr)
        for (Widget* widget : window->findChildren<Widget*>())
            if (shownText(*widget) == text)
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

    void closeModal() override { QGuiApplication::modalWindow()->close(); }

    bool isVisible(Window& window) override { return native<QWidget>(window).isVisible(); }
    std::string captionOf(Window& window) override {
        QWidget& widget = native<QWidget>(window);
        widget.winId();  // creates the native window
        return widget.windowHandle()->title().toStdString();
    }
    void resize(Window& window, Size inner) override {
        QWidget& widget = native<QWidget>(window);
        widget.resize(scale_.pixels(inner).grownBy(widget.contentsMargins()));
        settle();
    }
    void close(Window& window) override {
        QWindow& top = *native<QWidget>(window).windowHandle();
        // A modal window blocks the user but not this call.
        const QWindow* modal = QGuiApplication::modalWindow();
        if (modal == nullptr || modal == &top)
            top.close();
        settle();
    }
    void press(Window& window, Key key) override {
        QWidget& widget = native<QWidget>(window);
        widget.activateWindow();  // only the active window has shortcuts
        settle();
        QTest::keyClick(widget.windowHandle(), kQtKeys[static_cast<std::size_t>(key)]);
    }
    void press(Window& window, const std::string& keys) override {
        QWidget& widget = native<QWidget>(window);
        widget.activateWindow();  // only the active window has shortcuts
        settle();
        const QKeyCombination key = QKeySequence(QString::fromStdString(keys))[0];
        QTest::keyClick(widget.windowHandle(), key.key(), key.keyboardModifiers());
        settle();
        // Qt shows a button pressed by its access key as held down for a moment.
        for (const QAbstractButton* button : widget.findChildren<QAbstractButton*>())
            while (button->isDown())
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    Rect boundsOf(Control& control) override {
        const QWidget& widget = native<QWidget>(control);
        const QPoint inner = widget.window()->contentsRect().topLeft();
        return scale_.twips(QRect(widget.mapTo(widget.window(), -inner), widget.size()));
    }
    bool isEnabled(Control& control) override { return native<QWidget>(control).isEnabled(); }
    bool hasFocus(Control& control) override {
        // Sends keys within the window, because the window system may be slow to activate it.
        const QWidget& widget = native<QWidget>(control);
        return widget.window()->focusWidget() == &widget;
    }
    void giveFocus(Control& control) override { native<QWidget>(control).setFocus(); }
    std::string textOf(Control& control) override {
        const QWidget& widget = native<QWidget>(control);
        if (const auto* const label = qobject_cast<const QLabel*>(&widget))
            return label->text().toStdString();
        if (const auto* const box = qobject_cast<const QLineEdit*>(&widget))
            return box->displayText().toStdString();
        return shownText(dynamic_cast<const QAbstractButton&>(widget));
    }
    bool showsWholeText(Control& control) override {
        const QWidget& widget = native<QWidget>(control);
        if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
            const QRect space = label->contentsRect();
            const int flags =
                (label->wordWrap() ? Qt::TextWordWrap : 0) | static_cast<int>(label->alignment());
            return space.contains(label->fontMetrics().boundingRect(space, flags, label->text()));
        }
        const auto& button = dynamic_cast<const QAbstractButton&>(widget);
        const QSize needed = isOption(button)
                                 ? button.minimumSizeHint()
                                 : button.fontMetrics().size(Qt::TextShowMnemonic, button.text());
        return needed.width() <= button.width() && needed.height() <= button.height();
    }
    void click(Control& button) override {
        QWidget& widget = native<QWidget>(button);
        const QPoint middle = widget.rect().center();
        // An option button ignores clicks beside its text.
        clickAt(widget, isOption(widget) ? QPoint(middle.y(), middle.y()) : middle);
    }
    Progress progressOf(ProgressBar& bar) override {
        const QProgressBar& widget = native<QProgressBar>(bar);
        return {widget.minimum(), widget.maximum(), widget.value()};
    }

    std::vector<std::uint32_t> pictureOf(Control& control) override {
        return pixelsOf(native<QWidget>(control).grab());
    }

    TreeImage imageOf(Picture& picture) override { return imageIn(native<QWidget>(picture)); }
    bool isChecked(OptionButton& button) override {
        return native<QRadioButton>(button).isChecked();
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
    std::string selectedTextOf(TextBox& box) override {
        return native<QLineEdit>(box).selectedText().toStdString();
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
        return shown.shape() == Qt::WaitCursor           ? Pointer::Busy
               : shown.shape() == Qt::PointingHandCursor ? Pointer::Hand
                                                         : Pointer::Arrow;
    }
    void point(DrawingArea& area, PointerAct act, CanvasPoint where) override {
        QWidget& widget = native<QWidget>(area);
        QWindow* const top = widget.window()->windowHandle();
        const QPoint place = widget.mapTo(widget.window(), placeOf(area, where).toPoint());
        switch (act) {
            case PointerAct::Move:
                return QTest::mouseMove(top, place);
            case PointerAct::Press:
                return QTest::mousePress(top, Qt::LeftButton, {}, place);
            case PointerAct::Release:
                return QTest::mouseRelease(top, Qt::LeftButton, {}, place);
            case PointerAct::DoubleClick:
                return QTest::mouseDClick(top, Qt::LeftButton, {}, place);
            case PointerAct::Leave:
                QEvent leave(QEvent::Leave);
                QApplication::sendEvent(&widget, &leave);
        }
    }
    void turnWheel(DrawingArea& area, CanvasPoint where, double notches) override {
        QWidget& widget = native<QWidget>(area);
        const QPointF place = placeOf(area, where);
        constexpr double kNotch = QWheelEvent::DefaultDeltasPerStep;
        const QPoint turned(0, qRound(notches * kNotch));
        QWheelEvent wheel(place, widget.mapToGlobal(place), {}, turned, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &wheel);
    }
    std::string shownTip() override {
        return QToolTip::isVisible()
                   ? QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText().toStdString()
                   : "";
    }

    std::vector<TreeRow> rows(TreeView& tree, const TreePath& parent) override {
        const QTreeView& view = native<QTreeView>(tree);
        const QModelIndex above = indexAt(view, parent);
        view.model()->fetchMore(above);
        std::vector<TreeRow> rows;
        for (int row = 0; row < view.model()->rowCount(above); ++row) {
            const QModelIndex index = view.model()->index(row, 0, above);
            rows.push_back({index.data().toString().toStdString(), colorOfRow(index),
                            imageOfRow(index), view.model()->hasChildren(index),
                            view.isExpanded(index)});
        }
        return rows;
    }
    void clickRow(TreeView& tree, const TreePath& row) override {
        clickRow(tree, row, Qt::LeftButton);
    }
    void clickRowWith(Hold key, TreeView& tree, const TreePath& row) override {
        clickRow(tree, row, Qt::LeftButton,
                 key == Hold::Control ? Qt::ControlModifier : Qt::ShiftModifier);
    }
    std::vector<std::string> selectedTexts(TreeView& tree) override {
        const QTreeView& view = native<QTreeView>(tree);
        std::vector<std::string> texts;
        for (QModelIndex row = view.model()->index(0, 0); row.isValid(); row = view.indexBelow(row))
            if (view.selectionModel()->isSelected(row))
                texts.push_back(row.data().toString().toStdString());
        return texts;
    }
    void doubleClickRow(TreeView& tree, const TreePath& row) override {
        clickRow(tree, row, Qt::LeftButton);
        QTreeView& view = native<QTreeView>(tree);
        QWidget& top = *view.window();
        QTest::mouseDClick(top.windowHandle(), Qt::LeftButton, {},
                           view.viewport()->mapTo(&top, scrolledTo(view, row).center()));
    }
    std::vector<std::uint32_t> pictureBeside(TreeView& tree, const TreePath& row) override {
        QTreeView& view = native<QTreeView>(tree);
        QRect place = scrolledTo(view, row);
        place.setLeft(place.left() + view.sizeHintForIndex(indexAt(view, row)).width());
        return pixelsOf(view.viewport()->grab(place));
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
    static QPointF placeOf(DrawingArea& area, CanvasPoint where) {
        const double unit = native<QWidget>(area).width() / area.size().width;
        return {where.x * unit, where.y * unit};
    }
    static bool isOption(const QWidget& widget) {
        return qobject_cast<const QRadioButton*>(&widget) != nullptr;
    }
    std::vector<std::string> useMenuAt(TreeView& tree, const TreePath& row,
                                       const std::string& caption) override {
        clickRow(tree, row, Qt::RightButton);
        return useOpenMenu(caption, [](const QAction& action) { return shownText(action); });
    }
    std::vector<std::string> useMenuOf(Control& button, const std::string& item) override {
        click(button);
        return useOpenMenu(item, [](const QAction& action) {
            const std::string text = shownText(action);
            return action.isChecked() ? "*" + text : !action.isEnabled() ? "(" + text + ")" : text;
        });
    }
    template <class Look>
    std::vector<std::string> useOpenMenu(const std::string& caption, const Look& look) {
        const QMenu* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr)
            return {};
        std::vector<std::string> captions;
        QAction* chosen = nullptr;
        for (QAction* action : menu->actions()) {
            if (menu->actionGeometry(action).isEmpty())
                continue;
            captions.push_back(action->isSeparator() ? "-" : look(*action));
            if (captions.back() == caption)
                chosen = action;
        }
        EXPECT_FALSE(captions.empty()) << "A menu without items";
        EXPECT_EQ(chosen == nullptr, caption.empty()) << "No item " << caption;
        if (chosen == nullptr)
            QTest::keyClick(menu->windowHandle(), Qt::Key_Escape);
        else
            QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {},
                              menu->actionGeometry(chosen).center());
        settle();
        return captions;
    }
    static void clickRow(TreeView& tree, const TreePath& row, Qt::MouseButton button,
                         Qt::KeyboardModifiers held = {}) {
        QTreeView& view = native<QTreeView>(tree);
        clickAt(*view.viewport(), scrolledTo(view, row).center(), button, held);
    }
    void clickExpander(TreeView& tree, const TreePath& row, bool expanded) override {
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

std::unique_ptr<PictureOutput> makePictureOutput() {
    return std::make_unique<QtPictureOutput>();
}

std::unique_ptr<Driver> makeDriver() {
    return std::make_unique<QtDriver>();
}

}  // namespace pelk
