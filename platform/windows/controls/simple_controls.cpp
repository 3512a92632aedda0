#include "platform/windows/controls/simple_controls.h"

#include <algorithm>

#include "platform/guard.h"
#include "platform/spoken_text.h"
#include "platform/windows/controls/accessible_names.h"
#include "platform/windows/controls/images.h"
#include "platform/windows/controls/screen_dc.h"
#include "platform/windows/controls/window_text.h"

namespace pelk {

namespace {

bool isOptionButton(HWND control) {
    return (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0;
}

/// Returns the other option buttons of the window, in order.
std::vector<HWND> otherOptionsOf(HWND option) {
    std::vector<HWND> others;
    for (HWND control = GetWindow(option, GW_HWNDFIRST); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT))
        if (control != option && isOptionButton(control))
            others.push_back(control);
    return others;
}

void addStyle(HWND control, DWORD style) {
    SetWindowLongPtrW(control, GWL_STYLE,
                      GetWindowLongPtrW(control, GWL_STYLE) | static_cast<LONG_PTR>(style));
}

/// Windows draws a range of a single value as an empty bar. So the native bar gets one more value
/// below it, which is hidden from callers that query the range.
LRESULT CALLBACK answerForSingleValue(HWND bar, UINT message, WPARAM lowest, LPARAM range, UINT_PTR,
                                      DWORD_PTR) {
    if (message == WM_NCDESTROY)
        RemoveWindowSubclass(bar, answerForSingleValue, 0);
    const LRESULT answer = DefSubclassProc(bar, message, lowest, range);
    if (message != PBM_GETRANGE)
        return answer;
    if (range != 0)
        ++reinterpret_cast<PBRANGE*>(range)->iLow;
    return lowest != 0 ? answer + 1 : answer;
}

}  // namespace

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

/// The style that centres text also prevents wrapping.
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

Win32Picture::Win32Picture(const ControlPlace& place, TreeImage image)
    : Win32Control(place, {L"STATIC", SS_ICON | SS_CENTERIMAGE}), image_(image) {
    setAccessibleName(handle(), toWide(describeImage(image)));
}

Win32Picture::~Win32Picture() {
    DestroyIcon(icon_);
}

void Win32Picture::setBounds(const Rect& bounds) {
    Win32Control::setBounds(bounds);
    RECT space = {};
    GetClientRect(handle(), &space);
    const HICON before = icon_;
    icon_ =
        createTreeIcon(image_, static_cast<int>(std::max(1L, std::min(space.right, space.bottom))));
    SendMessageW(handle(), STM_SETICON, reinterpret_cast<WPARAM>(icon_), 0);
    if (before != nullptr)
        DestroyIcon(before);
}

Win32Button::Win32Button(const ControlPlace& place, const std::string& text, Dialogs& dialogs)
    : Win32Control(place, {L"BUTTON", BS_PUSHBUTTON | BS_NOTIFY | WS_TABSTOP}), dialogs_(dialogs) {
    SetWindowTextW(handle(), toWide(text).c_str());
}

/// Enter presses the default button, so the focused button becomes the default.
void Win32Button::commanded(WORD notification) {
    if (notification == BN_SETFOCUS)
        SendMessageW(handle(), BM_SETSTYLE, BS_DEFPUSHBUTTON | BS_NOTIFY, TRUE);
    else if (notification == BN_KILLFOCUS)
        SendMessageW(handle(), BM_SETSTYLE, BS_PUSHBUTTON | BS_NOTIFY, TRUE);
    else if (notification == BN_CLICKED)
        if (const auto handler = onClick)
            guarded(dialogs_, handler);
}

Win32OptionButton::Win32OptionButton(const ControlPlace& place, const std::string& text,
                                     Dialogs& dialogs)
    : Win32Control(place, {L"BUTTON", BS_AUTORADIOBUTTON}), dialogs_(dialogs) {
    SetWindowTextW(handle(), toWide(text).c_str());
    // The focus alone must not check the button.
    SendMessageW(handle(), BM_SETDONTCLICK, TRUE, 0);
    joinGroup();
}

/// Windows treats consecutive controls as a group, so an option button follows the last one,
/// whatever was added in between. Tab stops at the first until one is checked.
void Win32OptionButton::joinGroup() const {
    const std::vector<HWND> others = otherOptionsOf(handle());
    if (others.empty())
        addStyle(handle(), WS_GROUP | WS_TABSTOP);
    else
        SetWindowPos(handle(), others.back(), 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void Win32OptionButton::endGroupBefore(HWND control) {
    const HWND before = GetWindow(control, GW_HWNDPREV);
    if (before != nullptr && isOptionButton(before) && !isOptionButton(control))
        addStyle(control, WS_GROUP);
}

/// Windows unchecks only enabled buttons, and only when the user checks one.
void Win32OptionButton::clearOthers() const {
    for (const HWND other : otherOptionsOf(handle()))
        SendMessageW(other, BM_SETCHECK, BST_UNCHECKED, 0);
}

void Win32OptionButton::setChecked(bool checked) {
    if (checked)
        clearOthers();
    else if (!isChecked())
        return;
    SendMessageW(handle(), BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
    addStyle(handle(), WS_TABSTOP);  // Windows removes the style from unchecked buttons
}

bool Win32OptionButton::isChecked() const {
    return SendMessageW(handle(), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void Win32OptionButton::commanded(WORD notification) {
    if (notification != BN_CLICKED || !isChecked())
        return;
    clearOthers();
    if (const auto handler = onClick)
        guarded(dialogs_, handler);
}

Win32ProgressBar::Win32ProgressBar(const ControlPlace& place)
    : Win32Control(place, {PROGRESS_CLASSW, PBS_SMOOTH}) {
    setRange(0, 100);
}

void Win32ProgressBar::setRange(int minimum, int maximum) {
    const auto value = static_cast<int>(SendMessageW(handle(), PBM_GETPOS, 0, 0));
    const bool isSingleValue = minimum == maximum;
    if (isSingleValue)
        SetWindowSubclass(handle(), answerForSingleValue, 0, 0);
    else
        RemoveWindowSubclass(handle(), answerForSingleValue, 0);
    const int lowest = isSingleValue ? minimum - 1 : minimum;
    SendMessageW(handle(), PBM_SETRANGE32, static_cast<WPARAM>(lowest), maximum);
    setValue(value);
}

void Win32ProgressBar::setValue(int value) {
    PBRANGE range = {};
    SendMessageW(handle(), PBM_GETRANGE, TRUE, reinterpret_cast<LPARAM>(&range));
    SendMessageW(handle(), PBM_SETPOS,
                 static_cast<WPARAM>(std::clamp(value, range.iLow, range.iHigh)), 0);
}

}  // namespace pelk
