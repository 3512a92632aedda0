#include "platform/windows/controls/area_tip.h"

#include <algorithm>

#include "platform/windows/controls/module.h"

namespace pelk {
namespace {

HWND createTip(HWND control) {
    const WindowScope scope;
    return CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                           WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0, 0, control, nullptr,
                           ownModule(), nullptr);
}

RECT workAreaAt(POINT point) {
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromPoint(point, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

}  // namespace

AreaTip::AreaTip(HWND control) : control_(control), tip_(createTip(control)) {
    const TTTOOLINFOW added = tool();
    SendMessageW(tip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&added));
    // Without a width, the tip would show several lines as one.
    SendMessageW(tip_, TTM_SETMAXTIPWIDTH, 0, GetSystemMetrics(SM_CXSCREEN) / 2);
}

TTTOOLINFOW AreaTip::tool() const {
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = TTF_TRACK | TTF_ABSOLUTE;
    tool.hwnd = control_;
    tool.lpszText = const_cast<wchar_t*>(text_.c_str());
    return tool;
}

void AreaTip::show(const std::wstring& text) {
    if (text.empty() && text_.empty())
        return;
    const bool isNew = text != text_;
    text_ = text;
    const TTTOOLINFOW shown = tool();
    if (isNew)
        SendMessageW(tip_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&shown));
    if (!text.empty())
        moveToPointer();
    SendMessageW(tip_, TTM_TRACKACTIVATE, !text.empty(), reinterpret_cast<LPARAM>(&shown));
}

/// Below the pointer, where it does not hide the tip; above it at the lower edge of the screen.
void AreaTip::moveToPointer() const {
    POINT pointer = {};
    GetCursorPos(&pointer);
    const RECT space = workAreaAt(pointer);
    const TTTOOLINFOW shown = tool();
    const auto size = static_cast<DWORD>(
        SendMessageW(tip_, TTM_GETBUBBLESIZE, 0, reinterpret_cast<LPARAM>(&shown)));
    const LONG gap = GetSystemMetrics(SM_CYCURSOR) * 2 / 3;
    const LONG left = std::max(space.left, std::min(pointer.x, space.right - LOWORD(size)));
    const bool fitsBelow = pointer.y + gap + HIWORD(size) <= space.bottom;
    const LONG top = fitsBelow ? pointer.y + gap : pointer.y - gap / 2 - HIWORD(size);
    SendMessageW(tip_, TTM_TRACKPOSITION, 0, MAKELPARAM(left, top));
}

}  // namespace pelk
