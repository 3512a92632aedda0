#include <windows.h>
// Requires the include above.

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "platform/windows/controls/images.h"
#include "platform/windows/controls/picture_output.h"
#include "platform/windows/controls/screen_dc.h"
#include "platform/windows/controls/strips.h"
#include "platform/windows/controls/toolkit.h"
#include "platform/windows/controls/window_text.h"
#include "tests/support/test_platform.h"
#include "tests/support/windows/native_tree.h"
#include "tests/support/windows/paper.h"
#include "tests/support/windows/win_acts.h"

namespace pelk {
namespace {

/// In the order of `Key`.
constexpr WPARAM kVirtualKeys[] = {VK_RETURN,   VK_ESCAPE,   VK_TAB,    VK_UP,
                                   VK_DOWN,     VK_LEFT,     VK_RIGHT,  VK_ADD,
                                   VK_SUBTRACT, VK_MULTIPLY, VK_DELETE, VK_HOME};

/// Returns the pixels of an icon, to identify its drawing.
std::vector<DWORD> pixelsOf(HICON icon) {
    ICONINFO parts = {};
    EXPECT_TRUE(GetIconInfo(icon, &parts)) << "There is no image";
    BITMAP size = {};
    GetObjectW(parts.hbmColor, sizeof size, &size);
    std::vector<DWORD> pixels(static_cast<std::size_t>(size.bmWidth * size.bmHeight));
    GetBitmapBits(parts.hbmColor, static_cast<LONG>(pixels.size() * sizeof(DWORD)), pixels.data());
    DeleteObject(parts.hbmColor);
    DeleteObject(parts.hbmMask);
    return pixels;
}

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

    void closeModal() override { PostMessageW(GetActiveWindow(), WM_SYSCOMMAND, SC_CLOSE, 0); }

    bool isVisible(Window& window) override { return IsWindowVisible(native(window)) != FALSE; }
    std::string captionOf(Window& window) override { return toUtf8(textOfWindow(native(window))); }
    void resize(Window& window, Size inner) override {
        const HWND top = native(window);
        SIZE size = scale_.pixels(inner);
        const Strips strips = stripsOf(top);
        size.cy += strips.above + strips.below;
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
        pressKey(keyTarget(native(window)), kVirtualKeys[static_cast<std::size_t>(key)]);
        settle();
    }
    void press(Window& window, const std::string& keys) override {
        pressKeys(keyTarget(native(window)), keys);
    }
    Rect boundsOf(Control& control) override {
        RECT place = {};
        GetWindowRect(native(control), &place);
        MapWindowPoints(nullptr, GetAncestor(native(control), GA_ROOT),
                        reinterpret_cast<POINT*>(&place), 2);
        OffsetRect(&place, 0, -stripsOf(GetAncestor(native(control), GA_ROOT)).above);
        return scale_.twips(place);
    }
    bool isEnabled(Control& control) override { return IsWindowEnabled(native(control)) != FALSE; }
    bool hasFocus(Control& control) override { return GetFocus() == native(control); }
    void giveFocus(Control& control) override {
        SetActiveWindow(GetAncestor(native(control), GA_ROOT));
        SetFocus(native(control));
        settle();
    }
    std::string textOf(Control& control) override { return shownText(native(control)); }
    bool showsWholeText(Control& control) override {
        constexpr int kUnlimited = 1 << 20;
        const HWND window = native(control);
        const bool wraps = dynamic_cast<Label*>(&control) != nullptr &&
                           (GetWindowLongPtrW(window, GWL_STYLE) & SS_CENTERIMAGE) == 0;
        const bool hasCircle = dynamic_cast<OptionButton*>(&control) != nullptr;
        const int taken = hasCircle ? GetSystemMetrics(SM_CXMENUCHECK) + 5 : 0;
        RECT inner = {};
        GetClientRect(window, &inner);
        const auto font = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
        const SIZE size = ScreenDc(font).sizeOf(toWide(textOf(control)),
                                                wraps ? static_cast<int>(inner.right) : kUnlimited);
        return size.cx + taken <= inner.right && size.cy <= inner.bottom;
    }
    void click(Control& button) override { clickMiddle(native(button)); }
    TreeImage imageOf(Picture& picture) override {
        const LRESULT shown = SendMessageW(native(picture), STM_GETICON, 0, 0);
        const std::vector<DWORD> pixels = pixelsOf(reinterpret_cast<HICON>(shown));
        const int side = static_cast<int>(std::sqrt(pixels.size()));
        int image = static_cast<int>(TreeImage::Three);
        for (; image > 0; --image) {
            const HICON icon = createTreeIcon(static_cast<TreeImage>(image), side);
            const bool same = pixelsOf(icon) == pixels;
            DestroyIcon(icon);
            if (same)
                break;
        }
        return static_cast<TreeImage>(image);
    }
    bool isChecked(OptionButton& button) override {
        return SendMessageW(native(button), BM_GETCHECK, 0, 0) == BST_CHECKED;
    }
    void type(TextBox& box, const std::string& text) override {
        constexpr WPARAM kControlA = 1;
        const HWND edit = native(box);
        giveFocus(box);
        PostMessageW(edit, WM_CHAR, kControlA, 1);
        if (text.empty())
            pressKey(edit, VK_DELETE);
        for (const wchar_t letter : toWide(text))
            PostMessageW(edit, WM_CHAR, letter, 1);
        settle();
    }
    std::string selectedTextOf(TextBox& box) override {
        DWORD from = 0;
        DWORD to = 0;
        SendMessageW(native(box), EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                     reinterpret_cast<LPARAM>(&to));
        return toUtf8(textOfWindow(native(box)).substr(from, to - from));
    }
    int valueOf(Slider& slider) override {
        return static_cast<int>(SendMessageW(native(slider), TBM_GETPOS, 0, 0));
    }
    void move(Slider& slider, int value) override {
        giveFocus(slider);
        const int steps = value - valueOf(slider);
        for (int step = 0; step < std::abs(steps); ++step)
            pressKey(native(slider), steps < 0 ? VK_LEFT : VK_RIGHT);
        settle();
        EXPECT_EQ(valueOf(slider), value);
    }
    std::vector<std::string> rowsOf(ListView& list) override {
        std::vector<std::string> rows;
        const LRESULT count = SendMessageW(native(list), LVM_GETITEMCOUNT, 0, 0);
        for (int row = 0; row < count; ++row) {
            wchar_t text[1024] = L"";
            LVITEMW item = {};
            item.pszText = text;
            item.cchTextMax = 1024;
            SendMessageW(native(list), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                         reinterpret_cast<LPARAM>(&item));
            rows.push_back(toUtf8(item.pszText));
        }
        return rows;
    }
    void selectRows(ListView& list, const std::vector<int>& rows) override {
        settle();
        RECT inner = {};
        GetClientRect(native(list), &inner);
        if (rows.empty())
            clickAt(native(list), {inner.right - 1, inner.bottom - 1});
        MouseButton button = MouseButton::Left;
        for (const int row : rows) {
            RECT place = {LVIR_LABEL, 0, 0, 0};
            SendMessageW(native(list), LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
            SendMessageW(native(list), LVM_GETITEMRECT, static_cast<WPARAM>(row),
                         reinterpret_cast<LPARAM>(&place));
            clickAt(native(list), {place.left + 3, (place.top + place.bottom) / 2}, button);
            button = MouseButton::LeftWithControlKey;
        }
    }
    Pointer pointerOver(Control& control) override {
        const HWND under = native(control);
        SetCursor(nullptr);
        SendMessageW(under, WM_SETCURSOR, reinterpret_cast<WPARAM>(under),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return GetCursor() == LoadCursorW(nullptr, IDC_WAIT)   ? Pointer::Busy
               : GetCursor() == LoadCursorW(nullptr, IDC_HAND) ? Pointer::Hand
                                                               : Pointer::Arrow;
    }
    void point(DrawingArea& area, PointerAct act, CanvasPoint where) override {
        pointAt(native(area), act, placeOf(area, where));
    }
    void turnWheel(DrawingArea& area, CanvasPoint where, double notches) override {
        POINT place = placeOf(area, where);
        ClientToScreen(native(area), &place);
        const auto turned = static_cast<int>(std::lround(notches * WHEEL_DELTA));
        PostMessageW(native(area), WM_MOUSEWHEEL, MAKEWPARAM(0, turned),
                     MAKELPARAM(place.x, place.y));
        settle();
    }
    std::string shownTip() override {
        for (const HWND window : windowsOfThread())
            if (classOf(window) == TOOLTIPS_CLASSW)
                return textOfTip(window);
        return "";
    }
    Progress progressOf(ProgressBar& bar) override {
        PBRANGE range = {};
        SendMessageW(native(bar), PBM_GETRANGE, TRUE, reinterpret_cast<LPARAM>(&range));
        const LRESULT value = SendMessageW(native(bar), PBM_GETPOS, 0, 0);
        return {range.iLow, range.iHigh, static_cast<int>(value)};
    }

    std::vector<std::uint32_t> pictureOf(Control& control) override {
        RECT inner = {};
        GetClientRect(native(control), &inner);
        const Paper paper({inner.right, inner.bottom});
        SendMessageW(native(control), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(paper.dc()),
                     PRF_CLIENT);
        return paper.pixels();
    }

    std::vector<TreeRow> rows(TreeView& tree, const TreePath& parent) override {
        const NativeTree view(tree);
        std::vector<TreeRow> rows;
        for (const HTREEITEM item : view.children(view.at(parent)))
            rows.push_back(view.row(item));
        return rows;
    }
    void clickRow(TreeView& tree, const TreePath& row) override {
        NativeTree(tree).click(row, TVHT_ONITEM);
    }
    void clickRowWith(Hold key, TreeView& tree, const TreePath& row) override {
        NativeTree(tree).click(
            row, TVHT_ONITEM,
            key == Hold::Control ? MouseButton::LeftWithControlKey : MouseButton::LeftWithShiftKey);
    }
    std::vector<std::string> selectedTexts(TreeView& tree) override {
        const NativeTree view(tree);
        std::vector<std::string> texts;
        for (HTREEITEM item = view.next(TVGN_ROOT); item != nullptr;
             item = view.next(TVGN_NEXTVISIBLE, item))
            if (view.isSelected(item))
                texts.push_back(view.text(item));
        return texts;
    }
    void doubleClickRow(TreeView& tree, const TreePath& row) override {
        clickRow(tree, row);
        const NativeTree view(tree);
        clickAt(native(tree), view.partOf(row, TVHT_ONITEM), MouseButton::LeftTwice);
    }
    std::vector<std::uint32_t> pictureBeside(TreeView& tree, const TreePath& row) override {
        RECT inner = {};
        GetClientRect(native(tree), &inner);
        const RECT text = NativeTree(tree).scrolledTo(row);
        const Paper paper({inner.right, inner.bottom});
        SendMessageW(native(tree), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(paper.dc()),
                     PRF_CLIENT | PRF_ERASEBKGND);
        const std::vector<std::uint32_t> all = paper.pixels();
        std::vector<std::uint32_t> beside;
        for (LONG y = text.top; y < text.bottom; ++y)
            beside.insert(beside.end(), all.begin() + y * inner.right + text.right,
                          all.begin() + (y + 1) * inner.right);
        return beside;
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
    /// Returns the control of the window that has the focus, or the window.
    static HWND keyTarget(HWND top) {
        SetActiveWindow(top);
        const HWND focus = GetFocus();
        return focus != nullptr && GetAncestor(focus, GA_ROOT) == top ? focus : top;
    }
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
    std::vector<std::string> useMenuAt(TreeView& tree, const TreePath& row,
                                       const std::string& caption) override {
        return useMenu(native(tree), NativeTree(tree).partOf(row, TVHT_ONITEM), caption);
    }
    std::vector<std::string> useMenuOf(Control& button, const std::string& item) override {
        return pelk::useMenuOf(native(button), item);
    }
    static POINT placeOf(DrawingArea& area, CanvasPoint where) {
        RECT inner = {};
        GetClientRect(native(area), &inner);
        const double unit = static_cast<double>(inner.right) / area.size().width;
        return {std::lround(where.x * unit), std::lround(where.y * unit)};
    }
    void clickExpander(TreeView& tree, const TreePath& row, bool expanded) override {
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

std::unique_ptr<PictureOutput> makePictureOutput() {
    return std::make_unique<Win32PictureOutput>();
}

std::unique_ptr<Driver> makeDriver() {
    return std::make_unique<WinDriver>();
}

}  // namespace pelk
