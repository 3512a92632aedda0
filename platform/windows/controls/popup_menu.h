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
    void addSeparator() override { items_.push_back(nullptr); }
    void open(ScreenPoint where) override;
    void openBelow(Control& control) override;

 private:
    class Item : public MenuItem {
     public:
        explicit Item(const std::string& text) { setCaption(text); }
        void setVisible(bool shown) override { visible = shown; }
        void setCaption(const std::string& text) override;
        void setEnabled(bool usable) override { enabled = usable; }
        void setChecked(bool marked) override { checked = marked; }

        std::string caption;
        bool visible = true;
        bool enabled = true;
        bool checked = false;
    };

    void fill(HMENU menu) const;
    std::size_t letUserChoose(ScreenPoint where) const;

    HWND window_;
    Dialogs& dialogs_;
    /// A null pointer is a separator.
    std::vector<std::unique_ptr<Item>> items_;
};

}  // namespace pelk
