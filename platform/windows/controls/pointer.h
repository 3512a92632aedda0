#pragma once
// The pointer over the program's own windows.

#include <windows.h>

namespace pelk {

/// Shows the hourglass, or no longer.
void setPointerBusy(bool busy);
bool isPointerBusy();

/// Shows the normal pointer while a box waits for the user.
class PointerForBox {
 public:
    PointerForBox() : busy_(isPointerBusy()) { setPointerBusy(false); }
    ~PointerForBox() { setPointerBusy(busy_); }
    PointerForBox(const PointerForBox&) = delete;
    PointerForBox& operator=(const PointerForBox&) = delete;

 private:
    bool busy_;
};

/// Must be called when `window` changes its pointer: shows it at once if the mouse is over the
/// window.
void refreshPointer(HWND window);

/// Must be called before `window` is hidden: ends the tips beside the pointer and the drags of its
/// controls, which would outlast it.
void endPointerModes(HWND window);

}  // namespace pelk
