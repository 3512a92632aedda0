#pragma once

#include <windows.h>
// Requires the include above.

#include <cstdint>
#include <vector>

namespace pelk {

/// A picture in memory to draw on, white at first.
class Paper {
 public:
    explicit Paper(SIZE size) : size_(size), dc_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof info.bmiHeader, size.cx, size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        bitmap_ = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, nullptr, nullptr, 0);
        before_ = SelectObject(dc_, bitmap_);
        PatBlt(dc_, 0, 0, size.cx, size.cy, WHITENESS);
    }
    ~Paper() {
        SelectObject(dc_, before_);
        DeleteDC(dc_);
        DeleteObject(bitmap_);
    }
    Paper(const Paper&) = delete;
    Paper& operator=(const Paper&) = delete;

    HDC dc() const { return dc_; }
    /// Returns the colours of the pixels, row by row.
    std::vector<std::uint32_t> pixels() const {
        std::vector<std::uint32_t> pixels;
        for (int y = 0; y < size_.cy; ++y)
            for (int x = 0; x < size_.cx; ++x)
                pixels.push_back(GetPixel(dc_, x, y));
        return pixels;
    }

 private:
    SIZE size_;
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
};

}  // namespace pelk
