#pragma once
// What screen readers call the controls of a window.

#include <windows.h>

#include <string>

namespace pelk {

/// Overrides the name that the system derives from the window, which for a text box is any label
/// that happens to lie before it, and for a picture is empty. Does nothing where the system has no
/// accessibility.
void setAccessibleName(HWND control, const std::wstring& name);

/// Names each tree, list, text box, slider and bar after the last label before it, in the order of
/// creation, unless a button lies between. Otherwise a text box is named after its placeholder, and
/// the rest after the window.
void nameControls(HWND window);

enum class PictureKind { Chart, Graphic };

/// Tells screen readers of which kind a painted control is, and what it shows.
void describePicture(HWND picture, PictureKind kind, const std::wstring& description);

}  // namespace pelk
