#include "platform/desktop/qt/window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QWindow>
#include <utility>

#include "platform/desktop/qt/access_key_marks.h"
#include "platform/desktop/qt/accessible_names.h"
#include "platform/desktop/qt/bar_chart.h"
#include "platform/desktop/qt/drawing_area.h"
#include "platform/desktop/qt/images.h"
#include "platform/desktop/qt/list_view.h"
#include "platform/desktop/qt/popup_menu.h"
#include "platform/desktop/qt/simple_controls.h"
#include "platform/desktop/qt/tree_view.h"
#include "platform/desktop/qt/value_controls.h"
#include "platform/desktop/qt/window_placing.h"
#include "platform/guard.h"
#include "platform/window_place.h"

namespace pelk {

/// The window's widget, which forwards Qt's events to it.
class QtWindow::Frame : public QWidget {
 public:
    explicit Frame(QtWindow& window) : QWidget(nullptr, Qt::Window), window_(window) {
        setWindowIcon(programIcon());
        setAttribute(Qt::WA_QuitOnClose, false);
    }

 protected:
    void showEvent(QShowEvent*) override { window_.sizeChanged(); }
    void resizeEvent(QResizeEvent*) override { window_.sizeChanged(); }
    void hideEvent(QHideEvent* event) override {
        if (!event->spontaneous())
            window_.hidden();
    }
    void closeEvent(QCloseEvent* event) override { event->setAccepted(window_.closeRequested()); }
    void keyPressEvent(QKeyEvent* event) override {
        const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        for (QPushButton* button : findChildren<QPushButton*>())
            if (isEnter && button->isDefault())
                return button->click();
        QWidget::keyPressEvent(event);
    }

 private:
    QtWindow& window_;
};

QtWindow::QtWindow(const TwipScale& scale, Dialogs& dialogs, const Language& language)
    : scale_(scale),
      dialogs_(dialogs),
      language_(language),
      frame_(std::make_unique<Frame>(*this)),
      shortcuts_(*frame_, dialogs) {
    setShortcut(Shortcut::Escape, [this] { frame_->close(); });
}

QtWindow::~QtWindow() = default;

void QtWindow::setCaption(const std::string& caption) {
    // Qt interprets "[*]" as the mark of unsaved changes unless it is doubled.
    frame_->setWindowTitle(QString::fromStdString(caption).replace("[*]", "[*][*]"));
}

void QtWindow::setInnerSize(Size size) {
    const QScopedValueRollback<bool> setting(settingSize_, true);
    frame_->resize(outerSize(size));
    if (knownSize_.isValid())
        knownSize_ = frame_->size();
}

void QtWindow::setMinimumInnerSize(Size size) {
    const QScopedValueRollback<bool> setting(settingSize_, true);
    frame_->setMinimumSize(outerSize(size));
    if (knownSize_.isValid())
        knownSize_ = frame_->size();
}

Size QtWindow::innerSize() const {
    return scale_.twips(frame_->contentsRect().size());
}

QSize QtWindow::outerSize(Size inner) const {
    return scale_.pixels(inner).grownBy(frame_->contentsMargins());
}

void QtWindow::setStrips(int above, int below) {
    const QScopedValueRollback<bool> setting(settingSize_, true);
    const QMargins before = frame_->contentsMargins();
    const QMargins after(0, scale_.pixels(above), 0, scale_.pixels(below));
    frame_->setContentsMargins(after);
    for (QWidget* control : frame_->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (!control->isWindow())
            control->move(control->x(), control->y() + after.top() - before.top());
    const auto moved = [&](QSize outer) { return outer.shrunkBy(before).grownBy(after); };
    if (!frame_->minimumSize().isEmpty())
        frame_->setMinimumSize(moved(frame_->minimumSize()));
    frame_->resize(moved(frame_->size()));
    if (knownSize_.isValid())
        knownSize_ = frame_->size();
}

void QtWindow::show() {
    if (!frame_->isVisible())
        ownByActiveWindow(*frame_);
    bringToFront();
}

void QtWindow::bringToFront() {
    const bool shown = frame_->isVisible();
    markAccessKeys(*frame_);
    nameControls(*frame_);
    if (!shown)
        placeWindow(*frame_, std::exchange(wantedPlace_, std::nullopt));
    frame_->setWindowState(frame_->windowState() & ~Qt::WindowMinimized);
    frame_->show();
    if (shown)
        frame_->raise();
    frame_->activateWindow();
}

void QtWindow::showModal() {
    if (frame_->isModal()) {
        bringToFront();
        return;
    }
    setModal(true);
    bringToFront();
    if (frame_->isVisible()) {  // the first handler may have hidden it
        QEventLoop loop;
        modalLoop_ = &loop;
        loop.exec();
        modalLoop_ = nullptr;
    }
    frame_->hide();
    setModal(false);
}

/// The active window becomes the owner of a modal one, so that the window system keeps the modal
/// one in front. Changing the owner hides a visible window.
void QtWindow::setModal(bool modal) {
    frame_->setWindowFlags(modal ? Qt::Dialog : Qt::Window);
    frame_->setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
    if (!modal)
        return;
    ownByActiveWindow(*frame_);
}

void QtWindow::hide() {
    frame_->hide();
}

bool QtWindow::isVisible() const {
    return frame_->isVisible();
}

std::string QtWindow::place() const {
    return textOfPlace(placeOf(*frame_));
}

void QtWindow::setPlace(const std::string& place) {
    wantedPlace_ = placeIn(place);
}

void QtWindow::setBusyPointer(bool busy) {
    busy ? frame_->setCursor(Qt::WaitCursor) : frame_->unsetCursor();
    // Text boxes have a pointer of their own, which hides the window's.
    for (QLineEdit* line : frame_->findChildren<QLineEdit*>())
        if (line->cursor().shape() != Qt::ArrowCursor)
            busy ? line->unsetCursor() : line->setCursor(Qt::IBeamCursor);
}

void QtWindow::setShortcut(Shortcut shortcut, std::function<void()> act) {
    shortcuts_.set(shortcut, std::move(act));
}

void QtWindow::setDefaultButton(Button& button) {
    auto& widget = dynamic_cast<QPushButton&>(dynamic_cast<NativeWidget&>(button).nativeWidget());
    widget.setAutoDefault(false);  // else it is the default no longer once it has lost the focus
    widget.setDefault(true);
}

Label& QtWindow::addLabel(const Rect& bounds, const std::string& text) {
    Label& label = add(std::make_unique<QtLabel>(*frame_, scale_), bounds);
    label.setText(text);
    return label;
}

Picture& QtWindow::addPicture(const Rect& bounds, TreeImage image) {
    return add(std::make_unique<QtPicture>(*frame_, scale_, image), bounds);
}

Button& QtWindow::addButton(const Rect& bounds, const std::string& text) {
    return add(std::make_unique<QtButton>(*frame_, scale_, text, dialogs_), bounds);
}

OptionButton& QtWindow::addOptionButton(const Rect& bounds, const std::string& text) {
    return add(std::make_unique<QtOptionButton>(*frame_, scale_, text, options_, dialogs_), bounds);
}

TextBox& QtWindow::addTextBox(const Rect& bounds) {
    return add(std::make_unique<QtTextBox>(*frame_, scale_, dialogs_), bounds);
}

Slider& QtWindow::addSlider(const Rect& bounds) {
    return add(std::make_unique<QtSlider>(*frame_, scale_, dialogs_), bounds);
}

ProgressBar& QtWindow::addProgressBar(const Rect& bounds) {
    return add(std::make_unique<QtProgressBar>(*frame_, scale_), bounds);
}

ListView& QtWindow::addListView(const Rect& bounds) {
    return add(std::make_unique<QtListView>(*frame_, scale_), bounds);
}

TreeView& QtWindow::addTreeView(const Rect& bounds) {
    return add(std::make_unique<QtTreeView>(*frame_, scale_, dialogs_, language_), bounds);
}

BarChart& QtWindow::addBarChart(const Rect& bounds) {
    return add(std::make_unique<QtBarChart>(*frame_, scale_), bounds);
}

DrawingArea& QtWindow::addDrawingArea(const Rect& bounds) {
    return add(std::make_unique<QtDrawingArea>(*frame_, scale_, dialogs_), bounds);
}

PopupMenu& QtWindow::addPopupMenu() {
    menus_.push_back(std::make_unique<QtPopupMenu>(*frame_, dialogs_));
    return *menus_.back();
}

QWidget& QtWindow::nativeWidget() {
    return *frame_;
}

template <class Kind>
Kind& QtWindow::add(std::unique_ptr<Kind> control, const Rect& bounds) {
    Kind& added = *control;
    controls_.push_back(std::move(control));
    added.setBounds(bounds);
    added.nativeWidget().setVisible(true);
    return added;
}

void QtWindow::sizeChanged() {
    if (settingSize_ || !frame_->isVisible() || frame_->size() == knownSize_)
        return;
    knownSize_ = frame_->size();
    if (const auto handler = onResize)
        guarded(dialogs_, handler);
}

/// Whether to hide the window. A handler that fails must not trap the user.
bool QtWindow::closeRequested() {
    bool hide = true;
    if (const auto handler = onCloseRequest)
        guarded(dialogs_, [&] { hide = handler(); });
    return hide;
}

void QtWindow::hidden() {
    if (const auto handler = onHide)
        guarded(dialogs_, handler);
    if (modalLoop_ != nullptr)
        modalLoop_->quit();
}

}  // namespace pelk
