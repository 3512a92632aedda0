#pragma once
// Keyboard navigation of windows that live in the message loop of somebody else: that loop does
// not know of them, so Tab, arrows, Enter and Esc would be dead.

#include <windows.h>

namespace pelk {

/// While it lives, the keys of `window`, a dialog of the one thread that has windows, do what they
/// do in a dialog. The hook on the thread's messages is there as long as any such window is.
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
