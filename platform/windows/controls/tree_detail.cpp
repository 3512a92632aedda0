#include "platform/windows/controls/tree_detail.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include "platform/readable_color.h"
#include "platform/windows/controls/colors.h"
#include "platform/windows/controls/screen_dc.h"

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

HFONT fontOf(HWND tree) {
    return reinterpret_cast<HFONT>(SendMessageW(tree, WM_GETFONT, 0, 0));
}

/// Returns the space for the detail of an item; none if it has no detail, is not in view, or if the
/// space is so small that an ellipsis alone would tell nothing. Requires: the tree's font.
std::optional<RECT> spaceFor(HWND tree, HTREEITEM item, const std::wstring& detail, HDC dc) {
    const std::optional<RECT> text =
        item == nullptr || detail.empty() ? std::nullopt : placeOf(tree, item, true);
    if (!text)
        return std::nullopt;
    const int gap = 2 * averageWidth(dc);
    const RECT column = columnOf(tree);
    const RECT space = {std::max(text->right + gap, column.left), text->top, column.right - gap / 2,
                        text->bottom};
    return space.right - space.left > 3 * gap ? std::optional(space) : std::nullopt;
}

}  // namespace

void paintDetail(const NMTVCUSTOMDRAW& drawing, const std::wstring& detail) {
    const HWND tree = drawing.nmcd.hdr.hwndFrom;
    const HDC dc = drawing.nmcd.hdc;
    const int before = SaveDC(dc);
    SelectObject(dc, fontOf(tree));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, detailColor());
    const auto item = reinterpret_cast<HTREEITEM>(drawing.nmcd.dwItemSpec);
    if (std::optional<RECT> space = spaceFor(tree, item, detail, dc))
        DrawTextW(dc, detail.c_str(), static_cast<int>(detail.size()), &*space,
                  DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    RestoreDC(dc, before);
}

std::optional<RECT> placeOfCutDetail(HWND tree, HTREEITEM item, const std::wstring& detail) {
    const ScreenDc dc(fontOf(tree));
    const std::optional<RECT> space = spaceFor(tree, item, detail, dc.get());
    SIZE whole = {};
    GetTextExtentPoint32W(dc.get(), detail.c_str(), static_cast<int>(detail.size()), &whole);
    return space && whole.cx > space->right - space->left ? space : std::nullopt;
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
