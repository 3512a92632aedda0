#include "platform/windows/controls/list_view.h"

#include "platform/windows/controls/screen_dc.h"
#include "platform/windows/wide_text.h"

namespace pelk {

namespace {

constexpr DWORD kStyle = LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SHOWSELALWAYS | WS_TABSTOP;
/// Posted to the window, which returns it when it next handles messages.
constexpr WORD kRowsDone = 0x7000;
constexpr LPARAM kExtendedStyle = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;

}  // namespace

Win32ListView::Win32ListView(const ControlPlace& place)
    : Win32Control(place, {WC_LISTVIEWW, kStyle, WS_EX_CLIENTEDGE}) {
    SendMessageW(handle(), LVM_SETEXTENDEDLISTVIEWSTYLE, kExtendedStyle, kExtendedStyle);
    LVCOLUMNW column = {};
    column.mask = LVCF_WIDTH;
    SendMessageW(handle(), LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
}

bool Win32ListView::isSelected(std::size_t row) const {
    return (SendMessageW(handle(), LVM_GETITEMSTATE, row, LVIS_SELECTED) & LVIS_SELECTED) != 0;
}

void Win32ListView::setColumnHeader(const std::string& text) {
    widenFor(text);
}

LRESULT Win32ListView::notified(NMHDR& header) {
    if (header.code == LVN_GETDISPINFOW)
        fillIn(reinterpret_cast<NMLVDISPINFOW&>(header).item);
    return 0;
}

void Win32ListView::fillIn(LVITEMW& item) const {
    const auto row = static_cast<std::size_t>(item.iItem);
    if ((item.mask & LVIF_TEXT) != 0 && row < rows().size())
        lstrcpynW(item.pszText, toWide(rows()[row].text).c_str(), item.cchTextMax);
}

void Win32ListView::rowAdded() {
    holdRedraw();
    widenFor(rows().back().text);
    LVITEMW item = {};
    item.mask = LVIF_TEXT;
    item.iItem = static_cast<int>(rows().size()) - 1;
    item.pszText = LPSTR_TEXTCALLBACKW;
    SendMessageW(handle(), LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void Win32ListView::rowRemoved(std::size_t row) {
    holdRedraw();
    SendMessageW(handle(), LVM_DELETEITEM, row, 0);
}

/// Rows change many at a time and the native list would paint after each, so painting waits until
/// the next messages are handled.
void Win32ListView::holdRedraw() {
    if (holding_ || !IsWindowVisible(handle()))
        return;
    const HWND window = GetParent(handle());
    const auto id = static_cast<WORD>(GetDlgCtrlID(handle()));
    holding_ = PostMessageW(window, WM_COMMAND, MAKEWPARAM(id, kRowsDone),
                            reinterpret_cast<LPARAM>(handle())) != FALSE;
    if (holding_)
        SendMessageW(handle(), WM_SETREDRAW, FALSE, 0);
}

void Win32ListView::commanded(WORD notification) {
    if (notification != kRowsDone)
        return;
    holding_ = false;
    SendMessageW(handle(), WM_SETREDRAW, TRUE, 0);
    InvalidateRect(handle(), nullptr, TRUE);
}

/// The native list cuts off text wider than the column.
void Win32ListView::widenFor(const std::string& text) {
    const int airAround = ScreenDc(look_.font()).lineHeight();
    const LRESULT measured = SendMessageW(handle(), LVM_GETSTRINGWIDTHW, 0,
                                          reinterpret_cast<LPARAM>(toWide(text).c_str()));
    const int width = static_cast<int>(measured) + airAround;
    if (width <= width_)
        return;
    width_ = width;
    SendMessageW(handle(), LVM_SETCOLUMNWIDTH, 0, width);
}

}  // namespace pelk
