#pragma once
// What a user does to the windows of this thread, and what of them he sees.

#include <windows.h>

#include <string>
#include <vector>

#include "platform/windows/controls/native_control.h"

namespace pelk {

template <class Shown>
HWND native(Shown& shown) {
    return dynamic_cast<NativeHandle&>(shown).handle();
}

/// Handles what waits, as the host's loop does: it knows nothing of our windows.
void handleMessages();

enum class MouseButton { Left, LeftWithControlKey, Right };

/// Clicks at a point of the control; a window that is disabled, or hidden behind a control in
/// front, keeps the click away.
void clickAt(HWND control, POINT point, MouseButton button = MouseButton::Left);
void clickMiddle(HWND control);

/// Presses and releases a key, which goes to that window.
void pressKey(HWND window, WPARAM key);

/// The visible ones, from front to back.
std::vector<HWND> windowsOfThread();
std::wstring classOf(HWND window);

/// The text of a window as it is shown: that of a button without the marks of its key.
std::string shownText(HWND window);

/// The control of that class and text in the window in front that takes input; null for none.
HWND findInActiveWindow(const std::wstring& kind, const std::string& text);

/// Does to the menu that the right button opens at a point of the control what a user does with the
/// keyboard: chooses the item with that caption, or closes it when that is empty. Returns the
/// captions, none when no menu opens.
std::vector<std::string> useMenu(HWND control, POINT point, const std::string& caption);

}  // namespace pelk
