#pragma once
// A device context for measuring text.

#include <windows.h>

#include <string>

namespace pelk {

/// The screen's device context with a font selected.
class ScreenDc {
 public:
    explicit ScreenDc(HFONT font) : dc_(GetDC(nullptr)), before_(SelectObject(dc_, font)) {}
    ScreenDc(const ScreenDc&) = delete;
    ScreenDc& operator=(const ScreenDc&) = delete;
    ~ScreenDc() {
        SelectObject(dc_, before_);
        ReleaseDC(nullptr, dc_);
    }

    HDC get() const { return dc_; }

    /// Returns the size of the text in pixels, wrapped at `width`.
    SIZE sizeOf(const std::wstring& text, int width) const {
        RECT space = {0, 0, width, 0};
        DrawTextW(dc_, text.c_str(), static_cast<int>(text.size()), &space,
                  DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EXPANDTABS);
        return {space.right, space.bottom};
    }
    int lineHeight() const {
        TEXTMETRICW text = {};
        GetTextMetricsW(dc_, &text);
        return static_cast<int>(text.tmHeight);
    }

 private:
    HDC dc_;
    HGDIOBJ before_;
};

}  // namespace pelk
