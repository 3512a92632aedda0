#include "platform/windows/controls/picture_buffer.h"

#include "platform/error.h"

namespace pelk {

PictureBuffer::PictureBuffer(SIZE size) : size_(size), dc_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, size.cx, -size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* pixels = nullptr;
    bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    if (bitmap_ == nullptr) {
        DeleteDC(dc_);
        throw Error("The picture is too large for the memory.");
    }
    before_ = SelectObject(dc_, bitmap_);
    image_ = std::make_unique<Gdiplus::Bitmap>(static_cast<int>(size.cx), static_cast<int>(size.cy),
                                               static_cast<int>(4 * size.cx), PixelFormat32bppRGB,
                                               static_cast<BYTE*>(pixels));
}

PictureBuffer::~PictureBuffer() {
    image_.reset();
    SelectObject(dc_, before_);
    DeleteObject(bitmap_);
    DeleteDC(dc_);
}

void PictureBuffer::copyTo(HDC target, const RECT& place) const {
    SetStretchBltMode(target, COLORONCOLOR);
    StretchBlt(target, place.left, place.top, place.right - place.left, place.bottom - place.top,
               dc_, 0, 0, size_.cx, size_.cy, SRCCOPY);
}

}  // namespace pelk
