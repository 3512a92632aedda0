#include "platform/windows/controls/window.h"

#include <algorithm>
#include <utility>

#include "platform/guard.h"
#include "platform/window_place.h"
#include "platform/windows/controls/access_key_marks.h"
#include "platform/windows/controls/accessible_names.h"
#include "platform/windows/controls/bar_chart.h"
#include "platform/windows/controls/dialog_template.h"
#include "platform/windows/controls/drawing_area.h"
#include "platform/windows/controls/flag_scope.h"
#include "platform/windows/controls/list_view.h"
#include "platform/windows/controls/pointer.h"
#include "platform/windows/controls/popup_menu.h"
#include "platform/windows/controls/simple_controls.h"
#include "platform/windows/controls/tree_view.h"
#include "platform/windows/controls/value_controls.h"
#include "platform/windows/controls/window_placing.h"
#include "platform/windows/wide_text.h"

namespace pelk {

namespace {

/// Above the ids that Enter and Esc use.
constexpr int kFirstControl = 100;

bool isSame(const SIZE& one, const SIZE& other) {
    return one.cx == other.cx && one.cy == other.cy;
}

}  // namespace

Win32Window::Win32Window(const Look& look, Dialogs& dialogs, const Language& language)
    : look_(look), dialogs_(dialogs), language_(language) {
    const WindowScope scope;
    const EmptyTemplate empty(WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN);
    handle_ = CreateDialogIndirectParamW(ownModule(), &empty.header, nullptr, procedure,
                                         reinterpret_cast<LPARAM>(this));
    if (handle_ == nullptr)
        throw Error("Windows has no room for another window.");
    SendMessageW(handle_, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(look.largeIcon()));
    SendMessageW(handle_, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(look.smallIcon()));
    navigation_ = std::make_unique<KeyboardNavigation>(handle_, shortcuts_);
}

Win32Window::~Win32Window() {
    modal_.reset();
    navigation_.reset();
    SetWindowLongPtrW(handle_, DWLP_USER, 0);
    for (NativeControl* control : natives_)
        control->forgetHandlers();
    forgetStripsOf(handle_);
    releaseOwnedBy(handle_);
    DestroyWindow(handle_);
}

void Win32Window::setCaption(const std::string& caption) {
    SetWindowTextW(handle_, toWide(caption).c_str());
}

void Win32Window::setInnerSize(Size size) {
    resizeTo(look_.scale().pixels(size));
}

void Win32Window::setMinimumInnerSize(Size size) {
    minimum_ = look_.scale().pixels(size);
    resizeTo(size_);
}

Size Win32Window::innerSize() const {
    return look_.scale().twips(size_);
}

void Win32Window::setStrips(int above, int below) {
    const SIZE inner = size_;
    const Strips before = stripsOf(handle_);
    const Strips after = {static_cast<WORD>(look_.scale().pixels(above)),
                          static_cast<WORD>(look_.scale().pixels(below))};
    setStripsOf(handle_, after);
    for (const NativeControl* control : natives_) {
        RECT place = {};
        GetWindowRect(control->handle(), &place);
        MapWindowPoints(nullptr, handle_, reinterpret_cast<POINT*>(&place), 2);
        SetWindowPos(control->handle(), nullptr, place.left, place.top + after.above - before.above,
                     0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    resizeTo(inner);
}

/// Sets the size without calling a handler.
void Win32Window::resizeTo(SIZE inner) {
    const FlagScope setting(settingSize_);
    const SIZE frame =
        frameSize({std::max(inner.cx, minimum_.cx), std::max(inner.cy, minimum_.cy)});
    SetWindowPos(handle_, nullptr, 0, 0, frame.cx, frame.cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    if (knownSize_)
        knownSize_ = size_;
}

SIZE Win32Window::frameSize(SIZE inner) const {
    const Strips strips = stripsOf(handle_);
    RECT frame = {0, 0, inner.cx, inner.cy + strips.above + strips.below};
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongPtrW(handle_, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(handle_, GWL_EXSTYLE)));
    return {frame.right - frame.left, frame.bottom - frame.top};
}

void Win32Window::show() {
    ModalSession::windowShown(handle_);
    if (!isVisible())
        ownByActiveWindow();
    bringToFront();
}

void Win32Window::bringToFront() {
    markAccessKeys(handle_);
    nameControls(handle_);
    if (!isVisible())
        placeWindow(handle_, knownSize_.has_value(), std::exchange(wantedPlace_, std::nullopt));
    ShowWindow(handle_, IsIconic(handle_) ? SW_RESTORE : SW_SHOW);
    SetForegroundWindow(handle_);
    sizeChanged();
}

void Win32Window::showModal() {
    if (modal_ != nullptr) {
        bringToFront();
        return;
    }
    const HWND active = GetActiveWindow();
    setOwner(active != handle_ ? active : nullptr);
    modal_ = std::make_unique<ModalSession>(handle_);
    bringToFront();
    runUntilHidden();
    hide();
    setOwner(nullptr);
}

/// A window with an owner stays in front of it and cannot be minimized alone.
void Win32Window::setOwner(HWND owner) const {
    SetWindowLongPtrW(handle_, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
    const auto style = GetWindowLongPtrW(handle_, GWL_STYLE) & ~LONG_PTR{WS_MINIMIZEBOX};
    SetWindowLongPtrW(handle_, GWL_STYLE, owner == nullptr ? style | WS_MINIMIZEBOX : style);
    SetWindowPos(handle_, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

/// A window of the host might be destroyed first, and this one with it, so only ours are owners.
void Win32Window::ownByActiveWindow() const {
    const HWND active = GetActiveWindow();
    const bool isOurs = active != nullptr && GetWindowLongPtrW(active, DWLP_DLGPROC) ==
                                                 reinterpret_cast<LONG_PTR>(&procedure);
    if (isOurs && !isOwnedBy(active, handle_))
        setOwner(active);
}

/// WM_QUIT belongs to the host and is left for its own loop.
void Win32Window::runUntilHidden() const {
    MSG message;
    while (isVisible()) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == 0)
            PostQuitMessage(static_cast<int>(message.wParam));
        if (got <= 0)
            return;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

/// Enables the other windows before this one disappears, or Windows would activate another program.
void Win32Window::hide() {
    if (modal_ != nullptr) {
        modal_.reset();
        PostMessageW(handle_, WM_NULL, 0, 0);  // wakes the modal loop
    }
    const bool wasVisible = isVisible();
    endPointerModes(handle_);
    ShowWindow(handle_, SW_HIDE);
    if (const auto handler = onHide; handler && wasVisible)
        guarded(dialogs_, handler);
}

bool Win32Window::isVisible() const {
    return IsWindowVisible(handle_) != FALSE;
}

std::string Win32Window::place() const {
    return textOfPlace(placeOf(handle_));
}

void Win32Window::setPlace(const std::string& place) {
    wantedPlace_ = placeIn(place);
}

void Win32Window::setBusyPointer(bool busy) {
    busy_ = busy;
    refreshPointer(handle_);
}

void Win32Window::setShortcut(Shortcut shortcut, std::function<void()> act) {
    shortcuts_.set(shortcut, std::move(act));
}

void Win32Window::setDefaultButton(Button& button) {
    const HWND control = dynamic_cast<NativeHandle&>(button).handle();
    SendMessageW(handle_, DM_SETDEFID, static_cast<WPARAM>(GetDlgCtrlID(control)), 0);
}

ControlPlace Win32Window::nextPlace() const {
    return {handle_, kFirstControl + static_cast<int>(controls_.size()), look_};
}

Label& Win32Window::addLabel(const Rect& bounds, const std::string& text) {
    Label& label = add(std::make_unique<Win32Label>(nextPlace()), bounds);
    label.setText(text);
    return label;
}

Picture& Win32Window::addPicture(const Rect& bounds, TreeImage image) {
    return add(std::make_unique<Win32Picture>(nextPlace(), image), bounds);
}

Button& Win32Window::addButton(const Rect& bounds, const std::string& text) {
    return add(std::make_unique<Win32Button>(nextPlace(), text, dialogs_), bounds);
}

OptionButton& Win32Window::addOptionButton(const Rect& bounds, const std::string& text) {
    return add(std::make_unique<Win32OptionButton>(nextPlace(), text, dialogs_), bounds);
}

TextBox& Win32Window::addTextBox(const Rect& bounds) {
    return add(std::make_unique<Win32TextBox>(nextPlace(), dialogs_), bounds);
}

Slider& Win32Window::addSlider(const Rect& bounds) {
    return add(std::make_unique<Win32Slider>(nextPlace(), dialogs_), bounds);
}

ProgressBar& Win32Window::addProgressBar(const Rect& bounds) {
    return add(std::make_unique<Win32ProgressBar>(nextPlace()), bounds);
}

ListView& Win32Window::addListView(const Rect& bounds) {
    return add(std::make_unique<Win32ListView>(nextPlace()), bounds);
}

TreeView& Win32Window::addTreeView(const Rect& bounds) {
    return add(std::make_unique<Win32TreeView>(nextPlace(), dialogs_, language_), bounds);
}

BarChart& Win32Window::addBarChart(const Rect& bounds) {
    return add(std::make_unique<Win32BarChart>(nextPlace()), bounds);
}

DrawingArea& Win32Window::addDrawingArea(const Rect& bounds) {
    return add(std::make_unique<Win32DrawingArea>(nextPlace(), dialogs_), bounds);
}

PopupMenu& Win32Window::addPopupMenu() {
    menus_.push_back(std::make_unique<Win32PopupMenu>(handle_, dialogs_));
    return *menus_.back();
}

template <class Kind>
Kind& Win32Window::add(std::unique_ptr<Kind> control, const Rect& bounds) {
    Kind& added = *control;
    natives_.push_back(control.get());
    controls_.push_back(std::move(control));
    added.setBounds(bounds);
    Win32OptionButton::endGroupBefore(added.handle());
    return added;
}

NativeControl* Win32Window::controlOf(int id) const {
    const auto index = static_cast<std::size_t>(id - kFirstControl);
    return id >= kFirstControl && index < natives_.size() ? natives_[index] : nullptr;
}

NativeControl* Win32Window::controlOf(HWND control) const {
    NativeControl* const found = controlOf(GetDlgCtrlID(control));
    return found != nullptr && found->handle() == control ? found : nullptr;
}

INT_PTR CALLBACK Win32Window::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lparam);
        return FALSE;
    }
    auto* const self = reinterpret_cast<Win32Window*>(GetWindowLongPtrW(window, DWLP_USER));
    INT_PTR result = FALSE;
    if (self != nullptr && self->handle_ != nullptr)
        guarded(self->dialogs_, [&] { result = self->handleMessage(message, wparam, lparam); });
    return result;
}

/// Returns whether the message is handled, as a dialog procedure does.
INT_PTR Win32Window::handleMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_COMMAND:
            return handleCommand(LOWORD(wparam), HIWORD(wparam));
        case WM_NOTIFY:
            return handleNotification(*reinterpret_cast<NMHDR*>(lparam));
        case WM_CLOSE:
            closeRequested();
            return TRUE;
        case WM_SIZE:
            if (wparam != SIZE_MINIMIZED) {
                const Strips strips = stripsOf(handle_);
                size_ = {LOWORD(lparam), HIWORD(lparam) - strips.above - strips.below};
                sizeChanged();
            }
            return TRUE;
        case WM_GETMINMAXINFO: {
            const SIZE least = frameSize(minimum_);
            const SIZE screen = screenSizeOf(handle_);
            reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {std::min(least.cx, screen.cx),
                                                                     std::min(least.cy, screen.cy)};
            return TRUE;
        }
        case WM_SETCURSOR:
            return choosePointer(reinterpret_cast<HWND>(wparam));
        case WM_HSCROLL:
            if (NativeControl* const control = controlOf(reinterpret_cast<HWND>(lparam)))
                control->scrolled();
            return TRUE;
        case kShortcutPressed:
            shortcutPressed(static_cast<Shortcut>(wparam));
            return TRUE;
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
            colorsChanged(message);
            return FALSE;
        default:
            return FALSE;
    }
}

INT_PTR Win32Window::handleCommand(WORD id, WORD notification) {
    if (id == IDCANCEL)  // Esc
        closeRequested();
    if (NativeControl* const control = controlOf(id))
        control->commanded(notification);
    return TRUE;
}

INT_PTR Win32Window::handleNotification(NMHDR& header) {
    NativeControl* const control = controlOf(header.hwndFrom);
    if (control == nullptr)
        return FALSE;
    SetWindowLongPtrW(handle_, DWLP_MSGRESULT, control->notified(header));
    return TRUE;
}

/// Windows chooses the pointer unless the window is busy.
INT_PTR Win32Window::choosePointer(HWND under) const {
    const NativeControl* const control = controlOf(under);
    const bool arrow = control != nullptr && control->keepsArrowPointer();
    if (!arrow && !busy_ && !isPointerBusy())
        return FALSE;
    SetCursor(LoadCursorW(nullptr, arrow ? IDC_ARROW : IDC_WAIT));
    SetWindowLongPtrW(handle_, DWLP_MSGRESULT, TRUE);
    return TRUE;
}

void Win32Window::sizeChanged() {
    if (settingSize_ || !isVisible() || (knownSize_ && isSame(*knownSize_, size_)))
        return;
    knownSize_ = size_;
    if (const auto handler = onResize)
        guarded(dialogs_, handler);
}

/// A handler that fails must not trap the user. The task bar can ask to close a window that is
/// disabled by a modal one.
void Win32Window::closeRequested() {
    if (!IsWindowEnabled(handle_))
        return;
    bool hidden = true;
    if (const auto handler = onCloseRequest)
        guarded(dialogs_, [&] { hidden = handler(); });
    if (hidden)
        hide();
}

/// A box may have opened since the key was pressed.
void Win32Window::shortcutPressed(Shortcut shortcut) const {
    if (isVisible() && IsWindowEnabled(handle_))
        if (const auto act = shortcuts_.actOf(shortcut))
            guarded(dialogs_, act);
}

/// Controls learn of new colours from their window.
void Win32Window::colorsChanged(UINT message) const {
    if (message == WM_SYSCOLORCHANGE)
        for (const NativeControl* control : natives_)
            SendMessageW(control->handle(), message, 0, 0);
    RedrawWindow(handle_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

}  // namespace pelk
