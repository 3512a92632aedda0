#include "platform/windows/controls/pointer.h"

namespace pelk {

namespace {

bool busyNow = false;

}  // namespace

void setPointerBusy(bool busy) {
    busyNow = busy;
    SetCursor(LoadCursorW(nullptr, busy ? IDC_WAIT : IDC_ARROW));
}

bool isPointerBusy() {
    return busyNow;
}

INT_PTR showBusyPointer(HWND window) {
    if (!busyNow)
        return FALSE;
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    SetWindowLongPtrW(window, DWLP_MSGRESULT, TRUE);
    return TRUE;
}

}  // namespace pelk
