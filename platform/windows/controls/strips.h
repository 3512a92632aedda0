#pragma once
// The strips above and below a window's inner area. They are kept with the native window, where its
// controls find them.

#include <windows.h>

namespace pelk {

/// Heights in pixels.
struct Strips {
    WORD above = 0;
    WORD below = 0;
};

inline constexpr const wchar_t* kStripsProperty = L"Pelk.Strips";

inline Strips stripsOf(HWND window) {
    const auto packed = reinterpret_cast<ULONG_PTR>(GetPropW(window, kStripsProperty));
    return {LOWORD(packed), HIWORD(packed)};
}

inline void setStripsOf(HWND window, Strips strips) {
    const ULONG_PTR packed = MAKELONG(strips.above, strips.below);
    SetPropW(window, kStripsProperty, reinterpret_cast<HANDLE>(packed));
}

/// Required before the window is destroyed.
inline void forgetStripsOf(HWND window) {
    RemovePropW(window, kStripsProperty);
}

}  // namespace pelk
