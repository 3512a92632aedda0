#pragma once
// Shows the whole detail of a tree's row that does not fit beside its text.

#include <windows.h>
// Requires the include above.
#include <commctrl.h>

#include <string>

namespace pelk {

class DetailTip {
 public:
    /// The tree outlives this object.
    explicit DetailTip(HWND tree);
    DetailTip(const DetailTip&) = delete;
    DetailTip& operator=(const DetailTip&) = delete;
    ~DetailTip() { DestroyWindow(tip_); }

    /// The pointer is over the row of an item with that detail, or over none: shows the detail when
    /// the pointer rests on it, if it is cut.
    void pointAt(HTREEITEM item, const std::wstring& detail);

 private:
    TTTOOLINFOW tool() const;

    HWND tree_;
    HWND tip_;
    RECT place_ = {};
    std::wstring text_;
};

}  // namespace pelk
