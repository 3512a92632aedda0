#include "platform/windows/controls/icon_canvas.h"

#include <algorithm>
#include <cmath>

namespace pelk {

namespace {

constexpr int kEnlargement = 8;
constexpr double kUnits = 16;
/// The background; no drawing uses this colour.
constexpr COLORREF kNothing = RGB(255, 0, 255);

HBITMAP createBitmap(int size, DWORD** pixels) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size;
    info.bmiHeader.biHeight = -size;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    *pixels = static_cast<DWORD*>(bits);
    return bitmap;
}

}  // namespace

IconCanvas::IconCanvas(int size)
    : size_(size),
      dc_(CreateCompatibleDC(nullptr)),
      bitmap_(createBitmap(size * kEnlargement, &pixels_)),
      before_(SelectObject(dc_, bitmap_)) {
    SelectObject(dc_, GetStockObject(DC_BRUSH));
    SelectObject(dc_, GetStockObject(NULL_PEN));
    setEraser();
    PatBlt(dc_, 0, 0, size * kEnlargement, size * kEnlargement, PATCOPY);
}

IconCanvas::~IconCanvas() {
    SelectObject(dc_, before_);
    DeleteDC(dc_);
    DeleteObject(bitmap_);
}

void IconCanvas::setColor(COLORREF color) {
    SetDCBrushColor(dc_, color);
}

void IconCanvas::setEraser() {
    SetDCBrushColor(dc_, kNothing);
}

int IconCanvas::enlarged(double coordinate) const {
    return static_cast<int>(std::lround(coordinate * size_ * kEnlargement / kUnits));
}

void IconCanvas::circle(Dot middle, double radius) {
    // Without a pen, GDI leaves out the last row and column of a shape.
    Ellipse(dc_, enlarged(middle.x - radius), enlarged(middle.y - radius),
            enlarged(middle.x + radius) + 1, enlarged(middle.y + radius) + 1);
}

void IconCanvas::box(Dot upperLeft, Dot lowerRight) {
    Rectangle(dc_, enlarged(upperLeft.x), enlarged(upperLeft.y), enlarged(lowerRight.x) + 1,
              enlarged(lowerRight.y) + 1);
}

void IconCanvas::roundedBox(Dot upperLeft, Dot lowerRight, double radius) {
    RoundRect(dc_, enlarged(upperLeft.x), enlarged(upperLeft.y), enlarged(lowerRight.x) + 1,
              enlarged(lowerRight.y) + 1, enlarged(2 * radius), enlarged(2 * radius));
}

void IconCanvas::line(Dot from, Dot to, double width) {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    const double x = (to.y - from.y) / length * width / 2;
    const double y = (from.x - to.x) / length * width / 2;
    const POINT corners[] = {{enlarged(from.x + x), enlarged(from.y + y)},
                             {enlarged(to.x + x), enlarged(to.y + y)},
                             {enlarged(to.x - x), enlarged(to.y - y)},
                             {enlarged(from.x - x), enlarged(from.y - y)}};
    Polygon(dc_, corners, 4);
}

void IconCanvas::curves(const std::vector<Dot>& dots) {
    std::vector<POINT> points;
    for (const Dot& dot : dots)
        points.push_back({enlarged(dot.x), enlarged(dot.y)});
    BeginPath(dc_);
    PolyBezier(dc_, points.data(), static_cast<DWORD>(points.size()));
    CloseFigure(dc_);
    EndPath(dc_);
    FillPath(dc_);
}

/// Returns the mean colour of the drawing within the pixel. The alpha value is its share of the
/// pixel.
DWORD IconCanvas::pixelAt(int column, int row) const {
    constexpr DWORD kNothingInBitmap = 0xFF00FF;
    DWORD red = 0;
    DWORD green = 0;
    DWORD blue = 0;
    DWORD drawn = 0;
    for (int y = row * kEnlargement; y < (row + 1) * kEnlargement; ++y)
        for (int x = column * kEnlargement; x < (column + 1) * kEnlargement; ++x) {
            const DWORD pixel = pixels_[y * size_ * kEnlargement + x] & 0xFFFFFF;
            if (pixel == kNothingInBitmap)
                continue;
            red += pixel >> 16;
            green += pixel >> 8 & 0xFF;
            blue += pixel & 0xFF;
            ++drawn;
        }
    if (drawn == 0)
        return 0;
    constexpr DWORD kAll = kEnlargement * kEnlargement;
    return drawn * 255 / kAll << 24 | red / drawn << 16 | green / drawn << 8 | blue / drawn;
}

HICON IconCanvas::icon() const {
    GdiFlush();
    DWORD* pixels = nullptr;
    const HBITMAP colors = createBitmap(size_, &pixels);
    const auto bytesPerRow = static_cast<std::size_t>((size_ + 15) / 16 * 2);
    std::vector<BYTE> mask(bytesPerRow * static_cast<std::size_t>(size_), 0);
    for (int row = 0; row < size_; ++row)
        for (int column = 0; column < size_; ++column) {
            const DWORD pixel = pixelAt(column, row);
            pixels[row * size_ + column] = pixel;
            if (pixel == 0)
                mask[static_cast<std::size_t>(row) * bytesPerRow +
                     static_cast<std::size_t>(column / 8)] |= static_cast<BYTE>(0x80 >> column % 8);
        }
    const HBITMAP shape = CreateBitmap(size_, size_, 1, 1, mask.data());
    ICONINFO info = {TRUE, 0, 0, shape, colors};
    const HICON icon = CreateIconIndirect(&info);
    DeleteObject(shape);
    DeleteObject(colors);
    return icon;
}

}  // namespace pelk
