#include "tests/support/windows/win_picture.h"

#include <objidl.h>
// Its header needs the names of the one above.
#include <gdiplus.h>

#include "platform/windows/wide_text.h"

namespace pelk {

namespace {

constexpr CLSID kPngEncoder = {
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

/// What the window and its controls paint of themselves.
HBITMAP painted(HWND window, SIZE size) {
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, size.cx, size.cy);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    const HDC shown = GetDC(window);
    BitBlt(dc, 0, 0, size.cx, size.cy, shown, 0, 0, SRCCOPY);
    ReleaseDC(window, shown);
    SelectObject(dc, before);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

}  // namespace

bool savePicture(HWND window, const std::string& file) {
    RedrawWindow(window, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    RECT inner = {};
    GetClientRect(window, &inner);
    const HBITMAP bitmap = painted(window, {inner.right, inner.bottom});
    ULONG_PTR token = 0;
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&token, &input, nullptr);
    bool saved = false;
    {
        Gdiplus::Bitmap picture(bitmap, nullptr);
        saved = picture.Save(toWide(file).c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
    }
    Gdiplus::GdiplusShutdown(token);
    DeleteObject(bitmap);
    return saved;
}

}  // namespace pelk
