#pragma once
// A small picture that is drawn with smooth edges and an alpha channel, which GDI does not do of
// its own: it is drawn much enlarged, and each pixel is the mean of what it covers.

#include <windows.h>

#include <vector>

namespace pelk {

struct Dot {
    double x = 0;
    double y = 0;
};

/// Coordinates run from 0 to 16 in both directions. What is drawn later covers what was before.
class Canvas {
 public:
    explicit Canvas(int size);
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas();

    /// Draws with this colour from now on.
    void setColor(COLORREF color);
    /// What is drawn from now on is taken away instead.
    void setEraser();

    void circle(Dot middle, double radius);
    void box(Dot upperLeft, Dot lowerRight);
    void roundedBox(Dot upperLeft, Dot lowerRight, double radius);
    void line(Dot from, Dot to, double width);
    /// A filled outline: the first dot, then three for each curve.
    void curves(const std::vector<Dot>& dots);

    /// The picture as an icon, which the caller destroys.
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
