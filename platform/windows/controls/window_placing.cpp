#include "platform/windows/controls/window_placing.h"

#include "platform/window_place.h"

namespace pelk {

namespace {

Rect fromNative(const RECT& rect) {
    return {static_cast<int>(rect.left), static_cast<int>(rect.top),
            static_cast<int>(rect.right - rect.left), static_cast<int>(rect.bottom - rect.top)};
}

Rect spaceOf(HMONITOR screen) {
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    GetMonitorInfoW(screen, &info);
    return fromNative(info.rcWork);
}

HMONITOR screenFor(HWND active, const std::optional<Rect>& wanted) {
    if (!wanted)
        return MonitorFromWindow(active, MONITOR_DEFAULTTOPRIMARY);
    const RECT place = {wanted->left, wanted->top, wanted->left + wanted->width,
                        wanted->top + wanted->height};
    return MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST);
}

BOOL CALLBACK releaseFrom(HWND window, LPARAM owner) {
    if (GetWindow(window, GW_OWNER) == reinterpret_cast<HWND>(owner))
        SetWindowLongPtrW(window, GWLP_HWNDPARENT, 0);
    return TRUE;
}

}  // namespace

Rect placeOf(HWND window) {
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof placement;
    RECT place = {};
    if ((IsIconic(window) || IsZoomed(window)) && GetWindowPlacement(window, &placement))
        place = placement.rcNormalPosition;
    else
        GetWindowRect(window, &place);
    return fromNative(place);
}

void placeWindow(HWND window, bool wasShown, const std::optional<Rect>& wanted) {
    const HWND active = GetActiveWindow();
    const Rect now = placeOf(window);
    const Rect space =
        spaceOf(screenFor(active, wanted || !wasShown ? wanted : std::optional(now)));
    const bool isOver = active != nullptr && active != window && IsWindowVisible(active);
    const Rect middle = centredOver(now, isOver ? placeOf(active) : space);
    const Rect place = fittedInto(wanted ? *wanted : wasShown ? now : middle, space);
    SetWindowPos(window, nullptr, place.left, place.top, place.width, place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

SIZE screenSizeOf(HWND window) {
    const Rect space = spaceOf(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY));
    return {space.width, space.height};
}

bool isOwnedBy(HWND window, HWND owner) {
    while (window != nullptr && window != owner)
        window = GetWindow(window, GW_OWNER);
    return window != nullptr;
}

void releaseOwnedBy(HWND owner) {
    EnumThreadWindows(GetCurrentThreadId(), releaseFrom, reinterpret_cast<LPARAM>(owner));
}

}  // namespace pelk
