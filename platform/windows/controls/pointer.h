#pragma once
// The hourglass pointer, as far as it is ours to show: over the program's own windows.

#include <windows.h>

namespace pelk {

/// Shows the hourglass from now on, or no longer.
void setPointerBusy(bool busy);
bool isPointerBusy();

/// To be called when `window` gets another pointer: shows it at once if the mouse is over it.
void refreshPointer(HWND window);

}  // namespace pelk
