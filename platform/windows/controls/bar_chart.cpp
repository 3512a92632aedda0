#include "platform/windows/controls/bar_chart.h"

#include <algorithm>
#include <utility>

#include "platform/chart_layout.h"
#include "platform/windows/controls/accessible_names.h"
#include "platform/windows/controls/colors.h"
#include "platform/windows/controls/tree_detail.h"
#include "platform/windows/wide_text.h"

namespace pelk {
namespace {

/// Windows paints a window of a dialog in these colours.
constexpr int kTextColor = COLOR_WINDOWTEXT;
constexpr int kBackground = COLOR_BTNFACE;

ChartColors systemColors() {
    const Color text = fromNative(GetSysColor(kTextColor));
    return isHighContrast() ? ChartColors{text, text, text}
                            : chartColors(text, fromNative(GetSysColor(kBackground)));
}

RECT toNative(const Rect& place) {
    return {place.left, place.top, place.left + place.width, place.top + place.height};
}

UINT toNative(ChartAlign align) {
    return align == ChartAlign::Left ? DT_LEFT : align == ChartAlign::Center ? DT_CENTER : DT_RIGHT;
}

void fill(HDC dc, const Rect& place, const Color& color) {
    const RECT box = toNative(place);
    SetDCBrushColor(dc, toNative(color));
    FillRect(dc, &box, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void write(HDC dc, const ChartText& shown) {
    RECT place = toNative(shown.place);
    const std::wstring text = toWide(shown.text);
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &place,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS | toNative(shown.align));
}

ChartSpace spaceOf(HDC dc, const RECT& space) {
    TEXTMETRICW metrics = {};
    GetTextMetricsW(dc, &metrics);
    return {{static_cast<int>(space.right), static_cast<int>(space.bottom)},
            static_cast<int>(metrics.tmHeight),
            [dc](const std::string& text) {
                const std::wstring wide = toWide(text);
                SIZE size = {};
                GetTextExtentPoint32W(dc, wide.c_str(), static_cast<int>(wide.size()), &size);
                return static_cast<int>(size.cx);
            }};
}

}  // namespace

Win32BarChart::Win32BarChart(const ControlPlace& place) : Win32Control(place, {kClassName, 0}) {
    SetWindowLongPtrW(handle(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

void Win32BarChart::setContent(ChartContent content) {
    content_ = std::move(content);
    describePicture(handle(), PictureKind::Chart, toWide(content_.description));
    InvalidateRect(handle(), nullptr, FALSE);
}

LRESULT CALLBACK Win32BarChart::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const auto* const self =
        reinterpret_cast<const Win32BarChart*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self == nullptr ? DefWindowProcW(window, message, wparam, lparam)
                           : self->handleMessage(message, wparam, lparam);
}

LRESULT Win32BarChart::handleMessage(UINT message, WPARAM wparam, LPARAM lparam) const {
    switch (message) {
        case WM_ERASEBKGND:
            return 1;  // painting covers it all
        case WM_PAINT:
            paintWindow();
            return 0;
        case WM_PRINTCLIENT: {
            RECT space = {};
            GetClientRect(handle(), &space);
            paint(reinterpret_cast<HDC>(wparam), space);
            return 0;
        }
        case WM_GETDLGCODE:
            return DLGC_STATIC;
        case WM_SYSCOLORCHANGE:
            InvalidateRect(handle(), nullptr, FALSE);
            return 0;
        default:
            return DefWindowProcW(handle(), message, wparam, lparam);
    }
}

/// Paints in memory first, so that nothing flickers.
void Win32BarChart::paintWindow() const {
    PAINTSTRUCT painting = {};
    const HDC window = BeginPaint(handle(), &painting);
    RECT space = {};
    GetClientRect(handle(), &space);
    const HDC memory = CreateCompatibleDC(window);
    const HBITMAP picture =
        CreateCompatibleBitmap(window, std::max(1L, space.right), std::max(1L, space.bottom));
    const HGDIOBJ before = SelectObject(memory, picture);
    paint(memory, space);
    BitBlt(window, 0, 0, space.right, space.bottom, memory, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    DeleteObject(picture);
    DeleteDC(memory);
    EndPaint(handle(), &painting);
}

void Win32BarChart::paint(HDC dc, const RECT& space) const {
    const int before = SaveDC(dc);
    SelectObject(dc, look_.font());
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(kTextColor));
    FillRect(dc, &space, GetSysColorBrush(kBackground));
    const ChartLayout layout = layOut(content_, spaceOf(dc, space));
    const ChartColors colors = systemColors();
    for (const Rect& line : layout.scaleLines)
        fill(dc, line, colors.scaleLine);
    for (const ChartBox& box : layout.boxes)
        fill(dc, box.place, box.isAbove ? colors.above : colors.below);
    fill(dc, layout.middleLine, fromNative(GetSysColor(kTextColor)));
    for (const ChartText& shown : layout.texts)
        write(dc, shown);
    RestoreDC(dc, before);
}

}  // namespace pelk
