#pragma once
// An image in memory that GDI+ draws and GDI copies to the screen.

#include "platform/windows/controls/gdiplus_session.h"

namespace pelk {

class PictureBuffer {
 public:
    /// Requires: GDI+ works while this object exists, and both sides are above 0. Throws `Error`
    /// when the memory is too small.
    explicit PictureBuffer(SIZE size);
    PictureBuffer(const PictureBuffer&) = delete;
    PictureBuffer& operator=(const PictureBuffer&) = delete;
    ~PictureBuffer();

    SIZE size() const { return size_; }
    /// Returns what GDI+ draws on.
    Gdiplus::Bitmap& image() const { return *image_; }
    /// Copies the image into a rectangle, which may have another size.
    void copyTo(HDC target, const RECT& place) const;

 private:
    SIZE size_;
    HDC dc_;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
    std::unique_ptr<Gdiplus::Bitmap> image_;
};

}  // namespace pelk
