#pragma once
// The hourglass pointer, as far as it is ours to show: over the program's own windows.

#include <windows.h>

namespace pelk {

/// Shows the hourglass from now on, or no longer.
void setPointerBusy(bool busy);
bool isPointerBusy();

/// What a window's procedure answers to WM_SETCURSOR: shows the hourglass over the dialog `window`
/// and all in it and returns TRUE, or FALSE while nothing is busy.
INT_PTR showBusyPointer(HWND window);

}  // namespace pelk
