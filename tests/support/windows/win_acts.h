#pragma once
// Acts on the windows of this thread as a user does, and reads what the user sees.

#include <windows.h>

#include <string>
#include <vector>

#include "platform/windows/controls/native_control.h"
#include "tests/support/driver.h"

namespace pelk {

template <class Shown>
HWND native(Shown& shown) {
    return dynamic_cast<NativeHandle&>(shown).handle();
}

/// Handles pending messages like the host's loop, which does not know our windows.
void handleMessages();

enum class MouseButton { Left, LeftWithControlKey, LeftWithShiftKey, Right, LeftTwice };

/// Clicks at a point of the control. A disabled window, or one hidden behind another control, does
/// not get the click.
void clickAt(HWND control, POINT point, MouseButton button = MouseButton::Left);
void clickMiddle(HWND control);

/// Acts with the pointer and the left button at a point in a window.
void pointAt(HWND window, PointerAct act, POINT place);

/// Returns the text of a tip that follows the pointer.
std::string textOfTip(HWND tip);

/// Presses and releases a key in that window.
void pressKey(HWND window, WPARAM key);

/// Presses a key with modifiers, such as "Ctrl+Shift+Z", "F2", "Esc" or "/", and handles the
/// messages.
void pressKeys(HWND window, const std::string& keys);

/// Returns the visible windows, from front to back.
std::vector<HWND> windowsOfThread();
std::wstring classOf(HWND window);

/// Returns the text of a window as shown: a button's without its access key mark.
std::string shownText(HWND window);

/// Returns the control of that class and text in the front window that takes input, or null.
HWND findInActiveWindow(const std::wstring& kind, const std::string& text);

/// Opens the menu at a point of the control with the right button and uses the keyboard: chooses
/// the item with that caption, or closes the menu when it is empty. Returns the captions, none when
/// no menu opens.
std::vector<std::string> useMenu(HWND control, POINT point, const std::string& caption);

/// Does the same with the menu that a button opens. The captions show how the items look, see
/// `Driver::menuOf`.
std::vector<std::string> useMenuOf(HWND button, const std::string& item);

}  // namespace pelk
