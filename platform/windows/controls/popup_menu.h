#pragma once
// The pop-up menu.

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/dialogs.h"

namespace pelk {

/// The native menu is created each time, from the items that are visible then.
class Win32PopupMenu : public PopupMenu {
 public:
    /// Opens over `window`. `dialogs` shows the handlers' exceptions.
    Win32PopupMenu(HWND window, Dialogs& dialogs) : window_(window), dialogs_(dialogs) {}

    MenuItem& addItem(const std::string& caption) override;
    void open(ScreenPoint where) override;

 private:
    class Item : public MenuItem {
     public:
        explicit Item(std::wstring caption) : text(std::move(caption)) {}
        void setVisible(bool shown) override { visible = shown; }

        std::wstring text;
        bool visible = true;
    };

    std::size_t letUserChoose(ScreenPoint where) const;

    HWND window_;
    Dialogs& dialogs_;
    std::vector<std::unique_ptr<Item>> items_;
};

}  // namespace pelk
