#include "platform/windows/controls/simple_controls.h"

#include <algorithm>

#include "platform/guard.h"
#include "platform/windows/controls/screen_dc.h"
#include "platform/windows/controls/window_text.h"

namespace pelk {

Win32Label::Win32Label(const ControlPlace& place)
    : Win32Control(place, {L"STATIC", SS_LEFT | SS_NOPREFIX}) {}

void Win32Label::setBounds(const Rect& bounds) {
    Win32Control::setBounds(bounds);
    align();
}

void Win32Label::setText(const std::string& text) {
    SetWindowTextW(handle(), toWide(text).c_str());
    align();
}

void Win32Label::repaint() {
    RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

/// The style that centres a text stops it from wrapping.
void Win32Label::align() {
    RECT space = {};
    GetClientRect(handle(), &space);
    const ScreenDc dc(look_.font());
    const SIZE text = dc.sizeOf(textOfWindow(handle()), static_cast<int>(space.right));
    const bool oneLine = text.cy < 2 * dc.lineHeight();
    const auto style = GetWindowLongPtrW(handle(), GWL_STYLE) & ~LONG_PTR{SS_CENTERIMAGE};
    SetWindowLongPtrW(handle(), GWL_STYLE, oneLine ? style | SS_CENTERIMAGE : style);
    InvalidateRect(handle(), nullptr, TRUE);
}

Win32Button::Win32Button(const ControlPlace& place, const std::string& text, Dialogs& dialogs)
    : Win32Control(place, {L"BUTTON", BS_PUSHBUTTON | BS_NOTIFY | WS_TABSTOP}), dialogs_(dialogs) {
    std::wstring shown;
    for (const wchar_t letter : toWide(text))
        shown += letter == L'&' ? L"&&" : std::wstring(1, letter);
    SetWindowTextW(handle(), shown.c_str());
}

/// Enter presses the button that has the focus: that one is the default button.
void Win32Button::commanded(WORD notification) {
    if (notification == BN_SETFOCUS)
        SendMessageW(handle(), BM_SETSTYLE, BS_DEFPUSHBUTTON | BS_NOTIFY, TRUE);
    else if (notification == BN_KILLFOCUS)
        SendMessageW(handle(), BM_SETSTYLE, BS_PUSHBUTTON | BS_NOTIFY, TRUE);
    else if (notification == BN_CLICKED)
        if (const auto handler = onClick)
            guarded(dialogs_, handler);
}

Win32ProgressBar::Win32ProgressBar(const ControlPlace& place)
    : Win32Control(place, {PROGRESS_CLASSW, PBS_SMOOTH}) {
    setRange(0, 100);
}

void Win32ProgressBar::setRange(int minimum, int maximum) {
    const auto value = static_cast<int>(SendMessageW(handle(), PBM_GETPOS, 0, 0));
    SendMessageW(handle(), PBM_SETRANGE32, static_cast<WPARAM>(minimum), maximum);
    setValue(value);
}

void Win32ProgressBar::setValue(int value) {
    PBRANGE range = {};
    SendMessageW(handle(), PBM_GETRANGE, TRUE, reinterpret_cast<LPARAM>(&range));
    SendMessageW(handle(), PBM_SETPOS,
                 static_cast<WPARAM>(std::clamp(value, range.iLow, range.iHigh)), 0);
}

}  // namespace pelk
