#include "platform/windows/controls/keyboard_hook.h"

#include <map>

#include "platform/windows/controls/module.h"

namespace pelk {

namespace {

struct Hook {
    HHOOK handle = nullptr;
    std::map<HWND, const ShortcutActs*> windows;
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

bool isKey(const MSG& message) {
    return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
}

/// Returns whether a window of ours has handled the key.
bool isHandled(const MSG& message) {
    const HWND window = GetAncestor(message.hwnd, GA_ROOT);
    const auto ours = theHook().windows.find(window);
    if (ours == theHook().windows.end() || isMenuOpen())
        return false;
    // Posted, because the act may open a box, whose loop must not run inside the hook. The system
    // has to see a key that is pressed with Alt: without one, releasing Alt opens the window's
    // menu.
    if (const auto shortcut = ours->second->pressedBy(message))
        return PostMessageW(window, kShortcutPressed, static_cast<WPARAM>(*shortcut), 0) != FALSE &&
               message.message != WM_SYSKEYDOWN;
    MSG copy = message;
    return IsDialogMessageW(window, &copy) != FALSE;
}

/// Turns a handled key into a message that the host's loop ignores.
LRESULT CALLBACK messageTaken(int code, WPARAM how, LPARAM lparam) {
    MSG& message = *reinterpret_cast<MSG*>(lparam);
    if (code == HC_ACTION && how == PM_REMOVE && isKey(message) && isHandled(message)) {
        message.message = WM_NULL;
        message.wParam = 0;
        message.lParam = 0;
    }
    return CallNextHookEx(nullptr, code, how, lparam);
}

}  // namespace

KeyboardNavigation::KeyboardNavigation(HWND window, const ShortcutActs& shortcuts)
    : window_(window) {
    Hook& hook = theHook();
    hook.windows.emplace(window, &shortcuts);
    if (hook.handle == nullptr)
        hook.handle = SetWindowsHookExW(WH_GETMESSAGE, messageTaken, nullptr, GetCurrentThreadId());
}

KeyboardNavigation::~KeyboardNavigation() {
    Hook& hook = theHook();
    hook.windows.erase(window_);
    if (!hook.windows.empty())
        return;
    UnhookWindowsHookEx(hook.handle);
    hook.handle = nullptr;
}

}  // namespace pelk
