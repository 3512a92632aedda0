#include <gtest/gtest.h>
#include <windows.h>
// The line above comes first.
#include <commctrl.h>

#include <algorithm>
#include <cstring>
#include <deque>
#include <utility>

#include "platform/windows/controls/native_control.h"
#include "platform/windows/controls/screen_dc.h"
#include "platform/windows/controls/toolkit.h"
#include "platform/windows/controls/window_text.h"
#include "tests/support/test_platform.h"

namespace pelk {

namespace {

template <class Shown>
HWND native(Shown& shown) {
    return dynamic_cast<NativeHandle&>(shown).handle();
}

/// In the order of `Key`.
constexpr WPARAM kVirtualKeys[] = {VK_RETURN, VK_ESCAPE, VK_TAB, VK_UP,       VK_DOWN,
                                   VK_LEFT,   VK_RIGHT,  VK_ADD, VK_SUBTRACT, VK_MULTIPLY};

/// Handles what waits, as the host's loop does: it knows nothing of our windows.
void handleMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

/// Clicks at a point of the control; a window that is disabled, or hidden behind a control in
/// front, keeps the click away.
void clickAt(HWND control, POINT point) {
    RECT inner = {};
    GetClientRect(control, &inner);
    if (!IsWindowVisible(control) || !PtInRect(&inner, point)) {
        ADD_FAILURE() << "A click on what is not shown";
        return;
    }
    const HWND top = GetAncestor(control, GA_ROOT);
    if (!IsWindowEnabled(top))
        return;
    MapWindowPoints(control, top, &point, 1);
    const HWND hit = ChildWindowFromPointEx(top, point, CWP_SKIPINVISIBLE);
    if (!IsWindowEnabled(hit))
        return;
    SetActiveWindow(top);
    MapWindowPoints(top, hit, &point, 1);
    const LPARAM place = MAKELPARAM(point.x, point.y);
    PostMessageW(hit, WM_LBUTTONDOWN, MK_LBUTTON, place);
    PostMessageW(hit, WM_LBUTTONUP, 0, place);
    handleMessages();
}

void clickMiddle(HWND control) {
    RECT inner = {};
    GetClientRect(control, &inner);
    clickAt(control, {inner.right / 2, inner.bottom / 2});
}

std::vector<HWND> windowsOfThread() {
    std::vector<HWND> windows;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM all) -> BOOL {
            if (IsWindowVisible(window))
                reinterpret_cast<std::vector<HWND>*>(all)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

std::wstring classOf(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

/// "&&" shows one "&"; "&x" shows a marked "x".
std::string buttonText(HWND button) {
    std::wstring shown;
    const std::wstring text = textOfWindow(button);
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == L'&')
            ++at;
        shown += text[at];
    }
    return toUtf8(shown);
}

/// The control of that class and text in the window in front that takes input; null for none.
HWND findInActiveWindow(const std::wstring& kind, const std::string& text) {
    for (const HWND window : windowsOfThread()) {
        if (!IsWindowEnabled(window))
            continue;
        for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT))
            if (classOf(child) == kind &&
                (kind == L"Button" ? buttonText(child) : toUtf8(textOfWindow(child))) == text)
                return child;
    }
    return nullptr;
}

/// The tree control as Windows holds it.
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
    /// Null, and a failed test, when there is no such row.
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
    TVITEMW read(HTREEITEM item, UINT mask) const {
        TVITEMW read = {};
        read.mask = mask | TVIF_HANDLE;
        read.hItem = item;
        read.stateMask = TVIS_EXPANDED;
        EXPECT_TRUE(SendMessageW(tree_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&read)));
        return read;
    }
    std::string text(HTREEITEM item) const {
        wchar_t text[1024] = L"";
        TVITEMW read = {};
        read.mask = TVIF_TEXT;
        read.hItem = item;
        read.pszText = text;
        read.cchTextMax = 1024;
        SendMessageW(tree_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&read));
        return toUtf8(read.pszText);
    }
    bool isExpanded(HTREEITEM item) const {
        return (read(item, TVIF_STATE).state & TVIS_EXPANDED) != 0;
    }
    TreeRow row(HTREEITEM item) const {
        const TVITEMW shown = read(item, TVIF_IMAGE | TVIF_CHILDREN | TVIF_STATE);
        return {text(item), color(item), static_cast<TreeImage>(shown.iImage), shown.cChildren > 0,
                (shown.state & TVIS_EXPANDED) != 0};
    }
    /// The colour that the tree is told to use when it asks, as it does for each row it paints.
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
    /// Where the row's text stands; none when it is not in view.
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
    /// Clicks where the native tree says that the part of the row is: its text or its expander.
    void click(const TreePath& path, UINT part) const {
        const RECT row = scrolledTo(path);
        for (LONG x = row.right - 1; x >= 0; --x) {
            TVHITTESTINFO hit = {};
            hit.pt = {x, (row.top + row.bottom) / 2};
            SendMessageW(tree_, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
            if ((hit.flags & part) != 0) {
                clickAt(tree_, hit.pt);
                return;
            }
        }
        ADD_FAILURE() << "Row " << testing::PrintToString(path) << " cannot be clicked";
    }

 private:
    HWND tree_;
};

class WinDriver : public Driver {
 public:
    void settle() override { handleMessages(); }
    void later(std::function<void()> act) override {
        waiting().push_back(std::move(act));
        SetTimer(nullptr, 0, 10, runLater);
    }

    bool isWindowShown(const std::string& caption) override {
        const std::vector<HWND> windows = windowsOfThread();
        return std::any_of(windows.begin(), windows.end(), [&caption](HWND window) {
            return toUtf8(textOfWindow(window)) == caption;
        });
    }
    bool isLabelShown(const std::string& text) override {
        return findInActiveWindow(L"Static", text) != nullptr;
    }
    void clickButton(const std::string& text) override {
        if (const HWND button = findInActiveWindow(L"Button", text))
            clickMiddle(button);
        else
            ADD_FAILURE() << "No button " << text;
    }

    bool isVisible(Window& window) override { return IsWindowVisible(native(window)) != FALSE; }
    std::string captionOf(Window& window) override { return toUtf8(textOfWindow(native(window))); }
    void resize(Window& window, Size inner) override {
        const HWND top = native(window);
        const SIZE size = scale_.pixels(inner);
        RECT frame = {};
        RECT inside = {};
        GetWindowRect(top, &frame);
        GetClientRect(top, &inside);
        SetWindowPos(top, nullptr, 0, 0, size.cx + frame.right - frame.left - inside.right,
                     size.cy + frame.bottom - frame.top - inside.bottom,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        settle();
    }
    void close(Window& window) override {
        if (IsWindowEnabled(native(window)))
            PostMessageW(native(window), WM_SYSCOMMAND, SC_CLOSE, 0);
        settle();
    }
    void press(Window& window, Key key) override {
        const HWND top = native(window);
        SetActiveWindow(top);
        const HWND focus = GetFocus();
        const HWND target = focus != nullptr && GetAncestor(focus, GA_ROOT) == top ? focus : top;
        const WPARAM code = kVirtualKeys[static_cast<std::size_t>(key)];
        PostMessageW(target, WM_KEYDOWN, code, 1);
        PostMessageW(target, WM_KEYUP, code, 1 | 3LL << 30);
        settle();
    }
    Rect boundsOf(Control& control) override {
        RECT place = {};
        GetWindowRect(native(control), &place);
        MapWindowPoints(nullptr, GetAncestor(native(control), GA_ROOT),
                        reinterpret_cast<POINT*>(&place), 2);
        return scale_.twips(place);
    }
    bool isEnabled(Control& control) override { return IsWindowEnabled(native(control)) != FALSE; }
    bool hasFocus(Control& control) override { return GetFocus() == native(control); }
    void giveFocus(Control& control) override {
        SetActiveWindow(GetAncestor(native(control), GA_ROOT));
        SetFocus(native(control));
        settle();
    }
    std::string textOf(Label& label) override { return toUtf8(textOfWindow(native(label))); }
    std::string textOf(Button& button) override { return buttonText(native(button)); }
    bool showsWholeText(Label& label) override {
        const auto style = GetWindowLongPtrW(native(label), GWL_STYLE);
        const bool wraps = (style & SS_CENTERIMAGE) == 0;
        return fits(native(label), textOfWindow(native(label)), wraps);
    }
    bool showsWholeText(Button& button) override {
        return fits(native(button), toWide(textOf(button)), false);
    }
    void click(Button& button) override { clickMiddle(native(button)); }
    Progress progressOf(ProgressBar& bar) override {
        PBRANGE range = {};
        SendMessageW(native(bar), PBM_GETRANGE, TRUE, reinterpret_cast<LPARAM>(&range));
        const LRESULT value = SendMessageW(native(bar), PBM_GETPOS, 0, 0);
        return {range.iLow, range.iHigh, static_cast<int>(value)};
    }

    std::vector<TreeRow> rows(TreeView& tree, const TreePath& parent) override {
        const NativeTree view(tree);
        std::vector<TreeRow> rows;
        for (const HTREEITEM item : view.children(view.at(parent)))
            rows.push_back(view.row(item));
        return rows;
    }
    void expand(TreeView& tree, const TreePath& row) override { clickExpander(tree, row, false); }
    void collapse(TreeView& tree, const TreePath& row) override { clickExpander(tree, row, true); }
    void clickRow(TreeView& tree, const TreePath& row) override {
        NativeTree(tree).click(row, TVHT_ONITEMLABEL);
    }
    bool isInView(TreeView& tree, const TreePath& row) override {
        const NativeTree view(tree);
        return view.place(view.at(row)).has_value();
    }
    std::optional<std::string> selectedText(TreeView& tree) override {
        const NativeTree view(tree);
        const HTREEITEM selected = view.next(TVGN_CARET);
        return selected == nullptr ? std::nullopt : std::optional(view.text(selected));
    }

 private:
    static std::deque<std::function<void()>>& waiting() {
        static std::deque<std::function<void()>> acts;
        return acts;
    }
    static void CALLBACK runLater(HWND, UINT, UINT_PTR timer, DWORD) {
        KillTimer(nullptr, timer);
        const auto act = std::move(waiting().front());
        waiting().pop_front();
        act();
    }
    static bool fits(HWND control, const std::wstring& text, bool wraps) {
        constexpr int kUnlimited = 1 << 20;
        RECT inner = {};
        GetClientRect(control, &inner);
        const auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
        const SIZE size =
            ScreenDc(font).sizeOf(text, wraps ? static_cast<int>(inner.right) : kUnlimited);
        return size.cx <= inner.right && size.cy <= inner.bottom;
    }
    static void clickExpander(TreeView& tree, const TreePath& row, bool expanded) {
        const NativeTree view(tree);
        const HTREEITEM item = view.at(row);
        EXPECT_GT(view.read(item, TVIF_CHILDREN).cChildren, 0) << "The row has no expander";
        EXPECT_EQ(view.isExpanded(item), expanded) << testing::PrintToString(row);
        view.click(row, TVHT_ONITEMBUTTON);
    }

    const Look look_;
    const TwipScale scale_ = look_.scale();
};

}  // namespace

std::unique_ptr<Toolkit> makeToolkit(Dialogs& dialogs, const Language& language) {
    return std::make_unique<Win32Toolkit>(dialogs, language);
}

std::unique_ptr<Driver> makeDriver() {
    return std::make_unique<WinDriver>();
}

}  // namespace pelk
