#pragma once
// The access keys of a window.

#include <windows.h>

namespace pelk {

/// Gives each button in the window that has no access key one that is free.
void markAccessKeys(HWND window);

}  // namespace pelk
