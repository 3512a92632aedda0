#pragma once
// A text beside the pointer.

#include <windows.h>
// Requires the include above.
#include <commctrl.h>

#include <string>

namespace pelk {

class AreaTip {
 public:
    /// The control outlives this object.
    explicit AreaTip(HWND control);
    AreaTip(const AreaTip&) = delete;
    AreaTip& operator=(const AreaTip&) = delete;
    ~AreaTip() { DestroyWindow(tip_); }

    /// Shows the text beside the pointer, or moves it there; an empty one hides the tip.
    void show(const std::wstring& text);

 private:
    TTTOOLINFOW tool() const;
    void moveToPointer() const;

    HWND control_;
    HWND tip_;
    std::wstring text_;
};

}  // namespace pelk
