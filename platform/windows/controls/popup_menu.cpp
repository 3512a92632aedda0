#include "platform/windows/controls/popup_menu.h"

#include "platform/guard.h"
#include "platform/windows/wide_text.h"

namespace pelk {

namespace {

/// In a menu, "&" would mark an access key.
std::wstring shownAsItIs(const std::string& caption) {
    std::wstring text;
    for (const wchar_t letter : toWide(caption))
        text += letter == L'&' ? L"&&" : std::wstring(1, letter);
    return text;
}

}  // namespace

MenuItem& Win32PopupMenu::addItem(const std::string& caption) {
    items_.push_back(std::make_unique<Item>(shownAsItIs(caption)));
    return *items_.back();
}

void Win32PopupMenu::open(ScreenPoint where) {
    const std::size_t chosen = letUserChoose(where);
    if (chosen == 0)
        return;
    if (const auto handler = items_[chosen - 1]->onClick)
        guarded(dialogs_, handler);
}

/// Returns the number of the item, from 1; 0 for none.
std::size_t Win32PopupMenu::letUserChoose(ScreenPoint where) const {
    const HMENU menu = CreatePopupMenu();
    for (std::size_t number = 1; number <= items_.size(); ++number)
        if (const Item& item = *items_[number - 1]; item.visible)
            AppendMenuW(menu, MF_STRING, number, item.text.c_str());
    // On the side of the pointer that the user's hand leaves free.
    const UINT side = GetSystemMetrics(SM_MENUDROPALIGNMENT) != 0 ? TPM_RIGHTALIGN : TPM_LEFTALIGN;
    const BOOL chosen = GetMenuItemCount(menu) > 0
                            ? TrackPopupMenu(menu, side | TPM_RIGHTBUTTON | TPM_RETURNCMD, where.x,
                                             where.y, 0, window_, nullptr)
                            : 0;
    DestroyMenu(menu);
    return static_cast<std::size_t>(chosen);
}

}  // namespace pelk
