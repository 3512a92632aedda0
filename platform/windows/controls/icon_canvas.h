#pragma once
// An image with smooth edges and an alpha channel, which GDI does not support. It is drawn enlarged
// and then averaged (supersampling).

#include <windows.h>

#include <vector>

namespace pelk {

struct Dot {
    double x = 0;
    double y = 0;
};

/// Coordinates run from 0 to 16 in both directions. Later shapes cover earlier ones.
class IconCanvas {
 public:
    explicit IconCanvas(int size);
    IconCanvas(const IconCanvas&) = delete;
    IconCanvas& operator=(const IconCanvas&) = delete;
    ~IconCanvas();

    /// Sets the colour of the following shapes.
    void setColor(COLORREF color);
    /// Makes the following shapes erase instead of draw.
    void setEraser();

    void circle(Dot middle, double radius);
    void box(Dot upperLeft, Dot lowerRight);
    void roundedBox(Dot upperLeft, Dot lowerRight, double radius);
    void line(Dot from, Dot to, double width);
    /// Fills an outline of Bézier curves: the start point, then three points for each curve.
    void curves(const std::vector<Dot>& dots);

    /// Returns the image as an icon, which the caller destroys.
    HICON icon() const;

 private:
    int enlarged(double coordinate) const;
    DWORD pixelAt(int column, int row) const;

    int size_;
    HDC dc_;
    DWORD* pixels_ = nullptr;
    HBITMAP bitmap_;
    HGDIOBJ before_;
};

}  // namespace pelk
