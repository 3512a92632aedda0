#pragma once
// Where windows appear on the screen.

#include <QWidget>
#include <optional>

#include "platform/controls.h"

namespace pelk {

/// Moves a hidden window to a place, or else over the window that owns it, or else to the middle of
/// the screen; one that was shown before stays. Afterwards it lies within the screen and is no
/// larger, even if its minimum was.
void placeWindow(QWidget& window, const std::optional<Rect>& wanted);

/// Makes the active window the owner of a hidden one: the window system keeps the owned window in
/// front of it.
void ownByActiveWindow(QWidget& window);

Rect placeOf(const QWidget& window);

}  // namespace pelk
