#pragma once
// Converts colours between Windows and the portable code.

#include <windows.h>

#include "platform/tree_model.h"

namespace pelk {

inline COLORREF toNative(const Color& color) {
    return RGB(color.red, color.green, color.blue);
}

inline Color fromNative(COLORREF color) {
    return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

}  // namespace pelk
