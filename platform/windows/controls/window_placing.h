#pragma once
// Where windows appear on the screen. Places include the frame.

#include <windows.h>

#include <optional>

#include "platform/controls.h"

namespace pelk {

/// Moves a hidden window to a place, or else over the active window, or else to the middle of the
/// screen; one that was shown before stays. Afterwards it lies within the screen.
void placeWindow(HWND window, bool wasShown, const std::optional<Rect>& wanted);

/// The size of the screen that has most of the window, without the task bar.
SIZE screenSizeOf(HWND window);

Rect placeOf(HWND window);

/// Whether `window` is owned by `owner`, directly or not, or is `owner`.
bool isOwnedBy(HWND window, HWND owner);

/// Windows would destroy the owned windows together with their owner.
void releaseOwnedBy(HWND owner);

}  // namespace pelk
