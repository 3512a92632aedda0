#pragma once
// The native tree control of Windows.

#include <windows.h>
// Requires the include above.
#include <commctrl.h>

#include <cstring>

#include "platform/windows/wide_text.h"
#include "tests/support/driver.h"
#include "tests/support/windows/win_acts.h"

namespace pelk {

class NativeTree {
 public:
    explicit NativeTree(TreeView& tree) : tree_(native(tree)) {}

    HTREEITEM next(WPARAM relation, HTREEITEM item = nullptr) const {
        return reinterpret_cast<HTREEITEM>(
            SendMessageW(tree_, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
    }
    std::vector<HTREEITEM> children(HTREEITEM parent) const {
        std::vector<HTREEITEM> all;
        for (HTREEITEM item = parent == nullptr ? next(TVGN_ROOT) : next(TVGN_CHILD, parent);
             item != nullptr; item = next(TVGN_NEXT, item))
            all.push_back(item);
        return all;
    }
    /// Returns null and fails the test when there is no such row.
    HTREEITEM at(const TreePath& path) const {
        HTREEITEM item = nullptr;
        for (const int row : path) {
            const std::vector<HTREEITEM> rows = children(item);
            if (static_cast<std::size_t>(row) >= rows.size()) {
                ADD_FAILURE() << "The tree has no row " << testing::PrintToString(path);
                return nullptr;
            }
            item = rows[static_cast<std::size_t>(row)];
        }
        return item;
    }
    TVITEMW read(HTREEITEM item, UINT mask, wchar_t* text = nullptr, int room = 0) const {
        TVITEMW read = {};
        read.mask = mask | TVIF_HANDLE;
        read.hItem = item;
        read.stateMask = TVIS_EXPANDED | TVIS_SELECTED;
        read.pszText = text;
        read.cchTextMax = room;
        EXPECT_TRUE(SendMessageW(tree_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&read)));
        return read;
    }
    std::string text(HTREEITEM item) const {
        wchar_t text[1024] = L"";
        return toUtf8(read(item, TVIF_TEXT, text, 1024).pszText);
    }
    bool isExpanded(HTREEITEM item) const {
        return (read(item, TVIF_STATE).state & TVIS_EXPANDED) != 0;
    }
    bool isSelected(HTREEITEM item) const {
        return (read(item, TVIF_STATE).state & TVIS_SELECTED) != 0;
    }
    TreeRow row(HTREEITEM item) const {
        const TVITEMW shown = read(item, TVIF_IMAGE | TVIF_CHILDREN | TVIF_STATE);
        return {text(item), color(item), static_cast<TreeImage>(shown.iImage), shown.cChildren > 0,
                (shown.state & TVIS_EXPANDED) != 0};
    }
    /// Returns the colour that the tree receives when it asks before painting a row.
    std::optional<Color> color(HTREEITEM item) const {
        constexpr COLORREF kUntouched = 0x01020304;
        NMTVCUSTOMDRAW drawing = {};
        drawing.nmcd.hdr = {tree_, static_cast<UINT_PTR>(GetDlgCtrlID(tree_)), NM_CUSTOMDRAW};
        drawing.nmcd.dwDrawStage = CDDS_ITEMPREPAINT;
        drawing.nmcd.dwItemSpec = reinterpret_cast<DWORD_PTR>(item);
        drawing.nmcd.lItemlParam = read(item, TVIF_PARAM).lParam;
        drawing.clrText = kUntouched;
        SendMessageW(GetParent(tree_), WM_NOTIFY, drawing.nmcd.hdr.idFrom,
                     reinterpret_cast<LPARAM>(&drawing));
        if (drawing.clrText == kUntouched)
            return std::nullopt;
        return Color{GetRValue(drawing.clrText), GetGValue(drawing.clrText),
                     GetBValue(drawing.clrText)};
    }
    /// Returns the rectangle of the row's text; none when it is not in view.
    std::optional<RECT> place(HTREEITEM item) const {
        RECT place = {};
        std::memcpy(&place, &item, sizeof item);
        if (!SendMessageW(tree_, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&place)))
            return std::nullopt;
        RECT inner = {};
        GetClientRect(tree_, &inner);
        if (place.top < 0 || place.bottom > inner.bottom)
            return std::nullopt;
        return place;
    }
    RECT scrolledTo(const TreePath& path) const {
        const HTREEITEM item = at(path);
        for (HTREEITEM above = next(TVGN_PARENT, item); above != nullptr;
             above = next(TVGN_PARENT, above))
            if (!isExpanded(above)) {
                ADD_FAILURE() << "Row " << testing::PrintToString(path) << " is under a closed one";
                return {};
            }
        SendMessageW(tree_, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
        return place(item).value_or(RECT{});
    }
    /// Returns a point in that part of the row: its text, its image where the text is blank, or its
    /// expander.
    POINT partOf(const TreePath& path, UINT part) const {
        const RECT row = scrolledTo(path);
        for (LONG x = row.right - 1; x >= 0; --x) {
            TVHITTESTINFO hit = {};
            hit.pt = {x, (row.top + row.bottom) / 2};
            SendMessageW(tree_, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
            if ((hit.flags & part) != 0)
                return hit.pt;
        }
        ADD_FAILURE() << "Row " << testing::PrintToString(path) << " cannot be clicked";
        return {-1, -1};
    }
    void click(const TreePath& path, UINT part, MouseButton button = MouseButton::Left) const {
        clickAt(tree_, partOf(path, part), button);
    }

 private:
    HWND tree_;
};

}  // namespace pelk
