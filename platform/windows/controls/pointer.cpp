#include "platform/windows/controls/pointer.h"

namespace pelk {

namespace {

bool busyNow = false;

BOOL CALLBACK endMode(HWND control, LPARAM) {
    SendMessageW(control, WM_CANCELMODE, 0, 0);
    return TRUE;
}

}  // namespace

void setPointerBusy(bool busy) {
    busyNow = busy;
    SetCursor(LoadCursorW(nullptr, busy ? IDC_WAIT : IDC_ARROW));
}

bool isPointerBusy() {
    return busyNow;
}

void refreshPointer(HWND window) {
    POINT mouse = {};
    GetCursorPos(&mouse);
    const HWND under = WindowFromPoint(mouse);
    if (under == window || IsChild(window, under))
        SendMessageW(under, WM_SETCURSOR, reinterpret_cast<WPARAM>(under),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
}

void endPointerModes(HWND window) {
    EnumChildWindows(window, endMode, 0);
}

}  // namespace pelk
