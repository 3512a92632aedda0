#pragma once
// The text of a native window or control.

#include <windows.h>

#include <string>

#include "platform/windows/wide_text.h"

namespace pelk {

inline std::wstring textOfWindow(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

}  // namespace pelk
