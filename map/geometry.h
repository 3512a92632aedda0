#pragma once
// Points and rectangles of layouts and pictures.
//
// All arithmetic is +, -, *, / and the square root, which every system rounds in the same way. The
// libraries' other functions differ in the last bit, and iterations amplify that.

#include <cmath>
#include <vector>

namespace pelk {

struct Point {
    double x = 0;
    double y = 0;

    friend Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
    friend Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
    friend Point operator*(Point a, double factor) { return {a.x * factor, a.y * factor}; }
    friend bool operator==(const Point&, const Point&) = default;
};

inline double squareOf(Point a) {
    return a.x * a.x + a.y * a.y;
}

inline double lengthOf(Point a) {
    return std::sqrt(squareOf(a));
}

using Points = std::vector<Point>;

/// Rounds the coordinates to multiples of 1/64.
inline void roundToGrid(Points& points) {
    const auto rounded = [](double number) { return std::floor(number * 64 + 0.5) / 64; };
    for (Point& point : points)
        point = {rounded(point.x), rounded(point.y)};
}

/// A rectangle; y grows downwards.
struct Box {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    double width() const { return right - left; }
    double height() const { return bottom - top; }
    Point center() const { return {(left + right) / 2, (top + bottom) / 2}; }
};

/// Whether two rectangles share an area. Rectangles that only touch do not overlap.
inline bool overlap(const Box& a, const Box& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

}  // namespace pelk
