#include "platform/windows/controls/tree_detail.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include "platform/readable_color.h"
#include "platform/windows/controls/colors.h"

namespace pelk {

namespace {

/// Returns the rectangle of an item's text, or of its whole row; none when it is not in view.
std::optional<RECT> placeOf(HWND tree, HTREEITEM item, bool textOnly) {
    RECT place = {};
    std::memcpy(&place, &item, sizeof item);
    const LRESULT found =
        SendMessageW(tree, TVM_GETITEMRECT, textOnly, reinterpret_cast<LPARAM>(&place));
    return found != 0 ? std::optional(place) : std::nullopt;
}

/// Returns the left and right end of the space for details, if no text is longer. Both move with
/// the content when it is scrolled.
RECT columnOf(HWND tree) {
    RECT column = {};
    GetClientRect(tree, &column);
    SCROLLINFO scroll = {};
    scroll.cbSize = sizeof scroll;
    scroll.fMask = SIF_POS | SIF_RANGE;
    GetScrollInfo(tree, SB_HORZ, &scroll);
    column.left = (column.left + column.right) / 2 - scroll.nPos;
    column.right = std::max<LONG>(column.right, scroll.nMax + 1) - scroll.nPos;
    return column;
}

COLORREF detailColor() {
    const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    if (isHighContrast())
        return text;
    return toNative(fadedColor(fromNative(text), fromNative(GetSysColor(COLOR_WINDOW))));
}

int averageWidth(HDC dc) {
    TEXTMETRICW metrics = {};
    GetTextMetricsW(dc, &metrics);
    return static_cast<int>(metrics.tmAveCharWidth);
}

}  // namespace

void paintDetail(const NMTVCUSTOMDRAW& drawing, const std::wstring& detail) {
    const HWND tree = drawing.nmcd.hdr.hwndFrom;
    const HDC dc = drawing.nmcd.hdc;
    const auto item = reinterpret_cast<HTREEITEM>(drawing.nmcd.dwItemSpec);
    const std::optional<RECT> text = placeOf(tree, item, true);
    if (!text || detail.empty())
        return;
    const int before = SaveDC(dc);
    SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(tree, WM_GETFONT, 0, 0)));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, detailColor());
    const int gap = 2 * averageWidth(dc);
    const RECT column = columnOf(tree);
    RECT space = {std::max(text->right + gap, column.left), text->top, column.right - gap / 2,
                  text->bottom};
    // An ellipsis alone tells nothing.
    if (space.right - space.left > 3 * gap)
        DrawTextW(dc, detail.c_str(), static_cast<int>(detail.size()), &space,
                  DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    RestoreDC(dc, before);
}

void repaintRow(HWND tree, HTREEITEM item) {
    if (const std::optional<RECT> row = placeOf(tree, item, false))
        InvalidateRect(tree, &*row, TRUE);
}

bool isHighContrast() {
    HIGHCONTRASTW contrast = {};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace pelk
