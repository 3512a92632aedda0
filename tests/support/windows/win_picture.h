#pragma once
// Pictures of windows.

#include <windows.h>

#include <string>

namespace pelk {

/// Saves the inner area of the window as a PNG file; returns whether that worked.
bool savePicture(HWND window, const std::string& file);

}  // namespace pelk
