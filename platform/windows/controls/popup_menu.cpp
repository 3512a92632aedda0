#include "platform/windows/controls/popup_menu.h"

#include <utility>

#include "platform/access_keys.h"
#include "platform/guard.h"
#include "platform/windows/controls/native_control.h"
#include "platform/windows/wide_text.h"

namespace pelk {

void Win32PopupMenu::Item::setCaption(const std::string& text) {
    caption = withoutAccessKey(text);
}

MenuItem& Win32PopupMenu::addItem(const std::string& caption) {
    items_.push_back(std::make_unique<Item>(caption));
    return *items_.back();
}

void Win32PopupMenu::open(ScreenPoint where) {
    const std::size_t chosen = letUserChoose(where);
    if (chosen == 0)
        return;
    if (const auto handler = items_[chosen - 1]->onClick)
        guarded(dialogs_, handler);
}

void Win32PopupMenu::openBelow(Control& control) {
    RECT place = {};
    GetWindowRect(dynamic_cast<NativeHandle&>(control).handle(), &place);
    open({static_cast<int>(place.left), static_cast<int>(place.bottom)});
}

/// The numbers of the items count from 1.
void Win32PopupMenu::fill(HMENU menu) const {
    std::vector<std::string> captions;
    for (const auto& item : items_)
        captions.push_back(item == nullptr ? "" : item->caption);
    captions = withAccessKeys(std::move(captions));
    bool separates = false;
    for (std::size_t number = 1; number <= items_.size(); ++number) {
        const Item* const item = items_[number - 1].get();
        separates = separates || item == nullptr;
        if (item == nullptr || !item->visible)
            continue;
        if (std::exchange(separates, false) && GetMenuItemCount(menu) > 0)
            AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        AppendMenuW(menu,
                    MF_STRING | (item->enabled ? MF_ENABLED : MF_GRAYED) |
                        (item->checked ? MF_CHECKED : MF_UNCHECKED),
                    number, toWide(captions[number - 1]).c_str());
    }
}

/// Returns the number of the item; 0 for none.
std::size_t Win32PopupMenu::letUserChoose(ScreenPoint where) const {
    const HMENU menu = CreatePopupMenu();
    fill(menu);
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
