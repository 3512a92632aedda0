#pragma once
// Keyboard navigation for windows in the host's message loop. That loop does not call
// IsDialogMessage for them, so Tab, arrows, Enter and Esc would do nothing.

#include <windows.h>

#include "platform/windows/controls/shortcut_acts.h"

namespace pelk {

/// Posted to a window whose shortcut was pressed, with the `Shortcut` as `wparam`.
inline constexpr UINT kShortcutPressed = WM_APP;

/// While this object exists, the keys of `window` work as in a dialog, and it learns of the
/// shortcuts that have an act. The message hook is installed while any such object exists. All
/// windows belong to one thread.
class KeyboardNavigation {
 public:
    /// Both must outlive this object.
    KeyboardNavigation(HWND window, const ShortcutActs& shortcuts);
    KeyboardNavigation(const KeyboardNavigation&) = delete;
    KeyboardNavigation& operator=(const KeyboardNavigation&) = delete;
    ~KeyboardNavigation();

 private:
    HWND window_;
};

}  // namespace pelk
