#pragma once
// Paints the details of a tree's rows.

#include <windows.h>
// Requires the include above.
#include <commctrl.h>

#include <optional>
#include <string>

namespace pelk {

/// Paints the detail of an item to the right of its text, on the window's background. Details begin
/// in the middle of the tree, so that they can be read as a column, or behind a text that is
/// longer. What does not fit is cut, with an ellipsis.
void paintDetail(const NMTVCUSTOMDRAW& drawing, const std::wstring& detail);

/// Returns where the detail of an item is painted if it does not fit there; none for no item.
std::optional<RECT> placeOfCutDetail(HWND tree, HTREEITEM item, const std::wstring& detail);

/// Repaints the whole row of an item if it is in view. The tree itself repaints only its text.
void repaintRow(HWND tree, HTREEITEM item);

bool isHighContrast();

}  // namespace pelk
