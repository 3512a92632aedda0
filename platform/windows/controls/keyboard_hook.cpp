#include "platform/windows/controls/keyboard_hook.h"

#include <algorithm>
#include <vector>

#include "platform/windows/controls/module.h"

namespace pelk {

namespace {

struct Hook {
    HHOOK handle = nullptr;
    std::vector<HWND> windows;
};

Hook& theHook() {
    static Hook hook;
    return hook;
}

/// An open menu receives the keys.
bool isMenuOpen() {
    GUITHREADINFO thread = {};
    thread.cbSize = sizeof thread;
    return GetGUIThreadInfo(GetCurrentThreadId(), &thread) &&
           (thread.flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE)) != 0;
}

bool isKeyOfOurs(const MSG& message) {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST)
        return false;
    const auto& windows = theHook().windows;
    return std::find(windows.begin(), windows.end(), GetAncestor(message.hwnd, GA_ROOT)) !=
               windows.end() &&
           !isMenuOpen();
}

/// Turns a key that the dialog has handled into a message that the host's loop ignores.
LRESULT CALLBACK messageTaken(int code, WPARAM how, LPARAM lparam) {
    MSG& message = *reinterpret_cast<MSG*>(lparam);
    if (code == HC_ACTION && how == PM_REMOVE && isKeyOfOurs(message)) {
        MSG copy = message;
        if (IsDialogMessageW(GetAncestor(message.hwnd, GA_ROOT), &copy)) {
            message.message = WM_NULL;
            message.wParam = 0;
            message.lParam = 0;
        }
    }
    return CallNextHookEx(nullptr, code, how, lparam);
}

}  // namespace

KeyboardNavigation::KeyboardNavigation(HWND window) : window_(window) {
    Hook& hook = theHook();
    hook.windows.push_back(window);
    if (hook.handle == nullptr)
        hook.handle = SetWindowsHookExW(WH_GETMESSAGE, messageTaken, nullptr, GetCurrentThreadId());
}

KeyboardNavigation::~KeyboardNavigation() {
    Hook& hook = theHook();
    std::erase(hook.windows, window_);
    if (!hook.windows.empty())
        return;
    UnhookWindowsHookEx(hook.handle);
    hook.handle = nullptr;
}

}  // namespace pelk
