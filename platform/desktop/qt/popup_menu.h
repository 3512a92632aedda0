#pragma once
// Pop-up menus.

#include <QMenu>
#include <memory>
#include <vector>

#include "platform/controls.h"
#include "platform/dialogs.h"

namespace pelk {

class QtPopupMenu : public PopupMenu {
 public:
    /// The menu belongs to the window of `parent`, which must outlive it. `dialogs` shows the
    /// handlers' exceptions.
    QtPopupMenu(QWidget& parent, Dialogs& dialogs) : menu_(&parent), dialogs_(dialogs) {}

    MenuItem& addItem(const std::string& caption) override;
    void addSeparator() override { menu_.addSeparator(); }
    void open(ScreenPoint where) override;
    void openBelow(Control& control) override;

 private:
    QMenu menu_;
    Dialogs& dialogs_;
    std::vector<std::unique_ptr<MenuItem>> items_;
};

}  // namespace pelk
