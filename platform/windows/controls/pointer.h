#pragma once
// The hourglass pointer over the program's own windows.

#include <windows.h>

namespace pelk {

/// Shows the hourglass, or no longer.
void setPointerBusy(bool busy);
bool isPointerBusy();

/// Must be called when `window` changes its pointer: shows it at once if the mouse is over the
/// window.
void refreshPointer(HWND window);

}  // namespace pelk
