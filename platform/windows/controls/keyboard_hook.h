#pragma once
// Keyboard navigation for windows in the host's message loop. That loop does not call
// IsDialogMessage for them, so Tab, arrows, Enter and Esc would do nothing.

#include <windows.h>

namespace pelk {

/// While this object exists, the keys of `window` work as in a dialog. The message hook is
/// installed while any such object exists. All windows belong to one thread.
class KeyboardNavigation {
 public:
    explicit KeyboardNavigation(HWND window);
    KeyboardNavigation(const KeyboardNavigation&) = delete;
    KeyboardNavigation& operator=(const KeyboardNavigation&) = delete;
    ~KeyboardNavigation();

 private:
    HWND window_;
};

}  // namespace pelk
