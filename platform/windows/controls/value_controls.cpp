#include "platform/windows/controls/value_controls.h"

#include <algorithm>

#include "platform/guard.h"
#include "platform/windows/controls/flag_scope.h"
#include "platform/windows/controls/window_text.h"

namespace pelk {

Win32TextBox::Win32TextBox(const ControlPlace& place, Dialogs& dialogs)
    : Win32Control(place, {L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE}),
      dialogs_(dialogs) {
    SendMessageW(handle(), EM_SETLIMITTEXT, 0, 0);
    SetWindowLongPtrW(handle(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    native_ = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
        handle(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Win32TextBox::procedure)));
}

LRESULT CALLBACK Win32TextBox::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    return reinterpret_cast<const Win32TextBox*>(GetWindowLongPtrW(window, GWLP_USERDATA))
        ->handleMessage(message, wparam, lparam);
}

/// Adds Ctrl+A, which some versions of Windows lack, and the keys that have a handler. A dialog
/// would take these keys unless the box asks for them.
LRESULT Win32TextBox::handleMessage(UINT message, WPARAM wparam, LPARAM lparam) const {
    constexpr WPARAM kControlA = 1;
    if (message == WM_CHAR && wparam == kControlA)
        return SendMessageW(handle(), EM_SETSEL, 0, -1);
    if (message == WM_CHAR && (wparam == VK_RETURN || wparam == VK_ESCAPE))
        return 0;  // the native box would beep
    const bool asksForKey = message == WM_GETDLGCODE && lparam != 0;
    if (asksForKey && handlerOf(reinterpret_cast<const MSG*>(lparam)->wParam) != nullptr)
        return DLGC_WANTMESSAGE | CallWindowProcW(native_, handle(), message, wparam, lparam);
    if (message == WM_KEYDOWN)
        if (const auto handler = handlerOf(wparam)) {
            guarded(dialogs_, handler);
            return 0;
        }
    return CallWindowProcW(native_, handle(), message, wparam, lparam);
}

std::function<void()> Win32TextBox::handlerOf(WPARAM key) const {
    switch (key) {
        case VK_RETURN:
            return onEnter;
        case VK_ESCAPE:
            return onEscape;
        case VK_UP:
        case VK_DOWN:
            if (onStep)
                return [step = onStep, key] { step(key == VK_UP ? -1 : 1); };
            return nullptr;
        default:
            return nullptr;
    }
}

void Win32TextBox::setText(const std::string& text) {
    const FlagScope silence(silent_);
    SetWindowTextW(handle(), toWide(text).c_str());
}

/// The hint stays while the box has the focus. Only the themed controls that the manifest asks for
/// can show one.
void Win32TextBox::setPlaceholder(const std::string& hint) {
    SendMessageW(handle(), EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(toWide(hint).c_str()));
}

std::string Win32TextBox::text() const {
    return toUtf8(textOfWindow(handle()));
}

void Win32TextBox::commanded(WORD notification) {
    const bool isEdit = notification == EN_CHANGE && !silent_;
    if (const auto handler = isEdit ? onChange : notification == EN_SETFOCUS ? onFocus : nullptr)
        guarded(dialogs_, handler);
}

Win32Slider::Win32Slider(const ControlPlace& place, Dialogs& dialogs)
    : Win32Control(place, {TRACKBAR_CLASSW,
                           TBS_HORZ | TBS_BOTH | TBS_NOTICKS | TBS_DOWNISLEFT | WS_TABSTOP}),
      dialogs_(dialogs) {
    SendMessageW(handle(), TBM_SETLINESIZE, 0, 1);
    SendMessageW(handle(), TBM_SETPAGESIZE, 0, 10);
    setRange(0, 100);
}

void Win32Slider::setRange(int minimum, int maximum) {
    SendMessageW(handle(), TBM_SETRANGEMIN, FALSE, minimum);
    SendMessageW(handle(), TBM_SETRANGEMAX, TRUE, maximum);
    setValue(std::clamp(known_, minimum, maximum));
}

void Win32Slider::setValue(int value) {
    SendMessageW(handle(), TBM_SETPOS, TRUE, value);
    known_ = this->value();
}

int Win32Slider::value() const {
    return static_cast<int>(SendMessageW(handle(), TBM_GETPOS, 0, 0));
}

/// The native slider also sends notifications when its value stays the same.
void Win32Slider::scrolled() {
    if (std::exchange(known_, value()) == known_)
        return;
    if (const auto handler = onChange)
        guarded(dialogs_, handler);
}

}  // namespace pelk
