#include "tests/support/windows/win_acts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "platform/windows/controls/window_text.h"

namespace pelk {
namespace {

struct MouseMessages {
    UINT down;
    UINT up;
    WPARAM keys;
};

/// In the order of `MouseButton`.
constexpr MouseMessages kMouseMessages[] = {
    {WM_LBUTTONDOWN, WM_LBUTTONUP, MK_LBUTTON},
    {WM_LBUTTONDOWN, WM_LBUTTONUP, MK_LBUTTON | MK_CONTROL},
    {WM_LBUTTONDOWN, WM_LBUTTONUP, MK_LBUTTON | MK_SHIFT},
    {WM_RBUTTONDOWN, WM_RBUTTONUP, MK_RBUTTON},
    {WM_LBUTTONDBLCLK, WM_LBUTTONUP, MK_LBUTTON},
};

/// Holds the keys of a mouse message (MK_CONTROL, MK_SHIFT) and Alt, or releases them.
void holdKeys(WPARAM held, bool alt = false) {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    constexpr BYTE kDown = 0x80;
    keys[VK_CONTROL] = (held & MK_CONTROL) != 0 ? kDown : BYTE{0};
    keys[VK_SHIFT] = (held & MK_SHIFT) != 0 ? kDown : BYTE{0};
    keys[VK_MENU] = alt ? kDown : BYTE{0};
    SetKeyboardState(keys);
}

/// Acts on a menu by a timer, from within the menu's own loop.
struct MenuUse {
    std::string chosen;
    bool withLooks = false;
    std::vector<std::string> captions;
};

MenuUse menuUse;

HWND openMenu() {
    for (const HWND window : windowsOfThread())
        if (classOf(window) == L"#32768")
            return window;
    return nullptr;
}

/// "&&" shows one "&"; "&x" shows an underlined "x".
std::string withoutMarks(const std::wstring& text) {
    std::wstring shown;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == L'&')
            ++at;
        shown += text[at];
    }
    return toUtf8(shown);
}

std::string lookOf(HMENU menu, UINT item, const std::string& text) {
    const UINT state = GetMenuState(menu, item, MF_BYPOSITION);
    if ((state & MF_SEPARATOR) != 0)
        return "-";
    if ((state & MF_CHECKED) != 0)
        return "*" + text;
    return (state & MF_GRAYED) != 0 ? "(" + text + ")" : text;
}

std::vector<std::string> captionsOf(HMENU menu) {
    std::vector<std::string> captions;
    for (UINT item = 0; item < static_cast<UINT>(GetMenuItemCount(menu)); ++item) {
        wchar_t text[256] = L"";
        GetMenuStringW(menu, item, text, 256, MF_BYPOSITION);
        const bool isLine = (GetMenuState(menu, item, MF_BYPOSITION) & MF_SEPARATOR) != 0;
        captions.push_back(menuUse.withLooks || isLine ? lookOf(menu, item, withoutMarks(text))
                                                       : withoutMarks(text));
    }
    return captions;
}

/// Goes down to the item and presses Enter, or Esc for none.
void chooseItem(HWND menu) {
    const LRESULT handle = SendMessageW(menu, MN_GETHMENU, 0, 0);
    menuUse.captions = captionsOf(reinterpret_cast<HMENU>(handle));
    const auto& captions = menuUse.captions;
    const auto found = std::find(captions.begin(), captions.end(), menuUse.chosen);
    EXPECT_EQ(found == captions.end(), menuUse.chosen.empty()) << "No item " << menuUse.chosen;
    if (found != captions.end())
        for (auto item = captions.begin(); item <= found; ++item)
            if (*item != "-")  // the arrow key passes a line
                pressKey(GetFocus(), VK_DOWN);
    pressKey(GetFocus(), found == captions.end() ? VK_ESCAPE : VK_RETURN);
}

void CALLBACK useMenuIfOpen(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND menu = openMenu();
    if (menu == nullptr)
        return;
    KillTimer(nullptr, timer);
    chooseItem(menu);
}

/// Windows sends F10 and keys with Alt as system keys.
void pressSystemKey(HWND window, WPARAM key, bool alt) {
    constexpr LPARAM kAlt = 1 << 29;
    constexpr DWORD wasDownAndGoesUp = 0xC0000000;
    const LPARAM context = alt ? kAlt : 0;
    PostMessageW(window, WM_SYSKEYDOWN, key, context | 1);
    PostMessageW(window, WM_SYSKEYUP, key, static_cast<LPARAM>(wasDownAndGoesUp | 1U) | context);
}

template <class Act>
std::vector<std::string> useMenuOpenedBy(const Act& act, MenuUse use) {
    menuUse = std::move(use);
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, useMenuIfOpen);
    act();
    KillTimer(nullptr, timer);
    return menuUse.captions;
}

}  // namespace

void handleMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void clickAt(HWND control, POINT point, MouseButton button) {
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
    const MouseMessages& messages = kMouseMessages[static_cast<std::size_t>(button)];
    holdKeys(messages.keys);
    PostMessageW(hit, messages.down, messages.keys, place);
    PostMessageW(hit, messages.up, messages.keys & (MK_CONTROL | MK_SHIFT), place);
    handleMessages();
    holdKeys(0);
}

void clickMiddle(HWND control) {
    RECT inner = {};
    GetClientRect(control, &inner);
    clickAt(control, {inner.right / 2, inner.bottom / 2});
}

/// The pointer itself moves as well: Windows reports that it has left a window it is not over.
void pointAt(HWND window, PointerAct act, POINT place) {
    POINT screen = place;
    ClientToScreen(window, &screen);
    if (act != PointerAct::Leave)
        SetCursorPos(screen.x, screen.y);
    handleMessages();
    const LPARAM where = MAKELPARAM(place.x, place.y);
    switch (act) {
        case PointerAct::Move:
            break;
        case PointerAct::Press:
            PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, where);
            break;
        case PointerAct::Release:
            PostMessageW(window, WM_LBUTTONUP, 0, where);
            break;
        case PointerAct::DoubleClick:
            clickAt(window, place);
            clickAt(window, place, MouseButton::LeftTwice);
            break;
        case PointerAct::Leave:
            PostMessageW(window, WM_MOUSELEAVE, 0, 0);
            break;
    }
    handleMessages();
}

std::string textOfTip(HWND tip) {
    wchar_t text[1024] = L"";
    TTTOOLINFOW shown = {};
    shown.cbSize = TTTOOLINFOW_V2_SIZE;
    shown.lpszText = text;
    SendMessageW(tip, TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&shown));
    return toUtf8(text);
}

void pressKey(HWND window, WPARAM key) {
    PostMessageW(window, WM_KEYDOWN, key, 1);
    constexpr DWORD wasDownAndGoesUp = 0xC0000000;
    PostMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(wasDownAndGoesUp | 1U));
}

void pressKeys(HWND window, const std::string& keys) {
    const std::string name = keys.substr(keys.rfind('+') + 1);
    if (name == "/") {
        PostMessageW(window, WM_CHAR, '/', 1);
        return handleMessages();
    }
    const auto key = name == "Esc"    ? VK_ESCAPE
                     : name == "Up"   ? VK_UP
                     : name == "Down" ? VK_DOWN
                     : name == "Left" ? VK_LEFT
                     : name.size() == 1
                         ? static_cast<WPARAM>(name[0])
                         : static_cast<WPARAM>(VK_F1 - 1 + std::stoi(name.substr(1)));
    const bool alt = keys.starts_with("Alt+");
    holdKeys((keys.find("Ctrl+") != std::string::npos ? MK_CONTROL : 0) |
                 (keys.find("Shift+") != std::string::npos ? MK_SHIFT : 0),
             alt);
    if (alt || key == VK_F10)
        pressSystemKey(window, key, alt);
    else
        pressKey(window, key);
    handleMessages();
    holdKeys(0);
}

static BOOL CALLBACK addIfVisible(HWND window, LPARAM windows) {
    if (IsWindowVisible(window))
        reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

std::vector<HWND> windowsOfThread() {
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), addIfVisible, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

std::wstring classOf(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

std::string shownText(HWND window) {
    const std::wstring text = textOfWindow(window);
    return classOf(window) == L"Button" ? withoutMarks(text) : toUtf8(text);
}

HWND findInActiveWindow(const std::wstring& kind, const std::string& text) {
    for (const HWND window : windowsOfThread()) {
        if (!IsWindowEnabled(window))
            continue;
        for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT))
            if (classOf(child) == kind && shownText(child) == text)
                return child;
    }
    return nullptr;
}

std::vector<std::string> useMenu(HWND control, POINT point, const std::string& caption) {
    return useMenuOpenedBy([&] { clickAt(control, point, MouseButton::Right); },
                           {caption, false, {}});
}

std::vector<std::string> useMenuOf(HWND button, const std::string& item) {
    return useMenuOpenedBy([&] { clickMiddle(button); }, {item, true, {}});
}

}  // namespace pelk
