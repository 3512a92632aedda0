#include "platform/windows/controls/gdiplus_canvas.h"

#include <cmath>

#include "platform/windows/wide_text.h"

namespace pelk {
namespace {

/// The width of the outline of a text of size 1.
constexpr float kHalo = 0.25F;
/// GDI+ draws lines with flat ends faster. At thinner lines nobody sees the ends.
constexpr double kThinLine = 2;

Gdiplus::Color toGdiplus(const Color& color, double opacity = 1) {
    const auto alpha = static_cast<BYTE>(std::lround(opacity * 255));
    return {alpha, color.red, color.green, color.blue};
}

Gdiplus::PointF toGdiplus(CanvasPoint point) {
    return {static_cast<float>(point.x), static_cast<float>(point.y)};
}

Gdiplus::RectF squareAround(CanvasPoint center, double radius) {
    const auto side = static_cast<float>(2 * radius);
    const Gdiplus::PointF corner = toGdiplus(CanvasPoint{center.x - radius, center.y - radius});
    return {corner.X, corner.Y, side, side};
}

}  // namespace

GdiplusCanvas::GdiplusCanvas(Gdiplus::Graphics& target, const PictureFont& font, double scale)
    : target_(target), font_(font) {
    target.SetPageUnit(Gdiplus::UnitPixel);
    target.ScaleTransform(static_cast<float>(scale), static_cast<float>(scale));
    target.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    // Whole coordinates lie between pixels, not in the middle of them.
    target.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
    target.SetTextRenderingHint(Gdiplus::TextRenderingHintAntiAlias);
}

void GdiplusCanvas::fill(const Color& color) {
    target_.Clear(toGdiplus(color));
}

void GdiplusCanvas::line(CanvasPoint from, CanvasPoint to, double width, const Color& color,
                         double opacity) {
    Gdiplus::Pen pen(toGdiplus(color, opacity), static_cast<float>(width));
    if (width >= kThinLine)
        pen.SetLineCap(Gdiplus::LineCapRound, Gdiplus::LineCapRound, Gdiplus::DashCapRound);
    target_.DrawLine(&pen, toGdiplus(from), toGdiplus(to));
}

void GdiplusCanvas::disc(CanvasPoint center, double radius, const Color& color) {
    const Gdiplus::SolidBrush brush(toGdiplus(color));
    target_.FillEllipse(&brush, squareAround(center, radius));
}

void GdiplusCanvas::ring(CanvasPoint center, double radius, double width, const Color& color,
                         double opacity) {
    const Gdiplus::Pen pen(toGdiplus(color, opacity), static_cast<float>(width));
    target_.DrawEllipse(&pen, squareAround(center, radius));
}

/// Draws the outline first, so that it covers lines but no letters.
void GdiplusCanvas::text(CanvasPoint start, const std::string& text, double size, bool bold,
                         const Color& color, const Color& halo) {
    const std::wstring wide = toWide(text);
    const auto length = static_cast<int>(wide.size());
    const auto height = static_cast<float>(size);
    const Gdiplus::PointF corner =
        toGdiplus(CanvasPoint{start.x, start.y - size * font_.ascent(bold)});
    Gdiplus::GraphicsPath outline;
    outline.AddString(wide.c_str(), length, &font_.family(), fontStyle(bold), height, corner,
                      &oneLineFormat());
    Gdiplus::Pen pen(toGdiplus(halo), kHalo * height);
    pen.SetLineJoin(Gdiplus::LineJoinRound);
    target_.DrawPath(&pen, &outline);
    const Gdiplus::Font font(&font_.family(), height, fontStyle(bold), Gdiplus::UnitPixel);
    const Gdiplus::SolidBrush brush(toGdiplus(color));
    target_.DrawString(wide.c_str(), length, &font, corner, &oneLineFormat(), &brush);
}

}  // namespace pelk
