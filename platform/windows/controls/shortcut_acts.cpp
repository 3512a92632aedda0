#include "platform/windows/controls/shortcut_acts.h"

#include <cwchar>

namespace pelk {

namespace {

bool isHeld(int key) {
    return GetKeyState(key) < 0;
}

/// A letter, "Esc", "Left" or a function key.
WPARAM virtualKey(std::string_view name) {
    if (name == "Esc")
        return VK_ESCAPE;
    if (name == "Left")
        return VK_LEFT;
    return name.size() == 1 ? static_cast<WPARAM>(name[0])
                            : static_cast<WPARAM>(VK_F1 + (name[1] - '1'));
}

bool arePressed(std::string_view keys, WPARAM key) {
    const std::size_t name = keys.rfind('+') + 1;  // 0 without a modifier
    const std::string_view modifiers = keys.substr(0, name);
    const auto needs = [modifiers](std::string_view modifier) {
        return modifiers.find(modifier) != std::string_view::npos;
    };
    return key == virtualKey(keys.substr(name)) && isHeld(VK_CONTROL) == needs("Ctrl") &&
           isHeld(VK_SHIFT) == needs("Shift") && isHeld(VK_MENU) == needs("Alt");
}

bool isTextBox(HWND control) {
    wchar_t name[16] = L"";
    GetClassNameW(control, name, 16);
    return _wcsicmp(name, L"Edit") == 0;
}

/// Whether the control wants the key in a dialog.
bool asksForKey(const MSG& message) {
    const LRESULT wishes = SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam,
                                        reinterpret_cast<LPARAM>(&message));
    return (wishes & DLGC_WANTMESSAGE) != 0;
}

}  // namespace

std::function<void()> ShortcutActs::actOf(Shortcut shortcut) const {
    const auto found = acts_.find(shortcut);
    return found == acts_.end() ? nullptr : found->second;
}

std::optional<Shortcut> ShortcutActs::pressedBy(const MSG& message) const {
    if (message.message == WM_CHAR && message.wParam == kFindCharacter &&
        acts_.contains(Shortcut::Find) && !isTextBox(message.hwnd))
        return Shortcut::Find;
    const bool isKey = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
    if (!isKey || asksForKey(message))
        return std::nullopt;
    for (const auto& [shortcut, keys] : kShortcutKeys) {
        if (!acts_.contains(shortcut) || !arePressed(keys, message.wParam))
            continue;
        const bool ofText = shortcut == Shortcut::Undo || shortcut == Shortcut::Redo;
        if (!ofText || !isTextBox(message.hwnd))
            return shortcut;
    }
    return std::nullopt;
}

}  // namespace pelk
