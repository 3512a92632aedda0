#pragma once
// Shows one contact and its direct relations, coloured by strength.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "db/database.h"
#include "platform/controls.h"
#include "platform/display.h"
#include "views/form_layout.h"

namespace pelk {

class ShowFormSingle {
 public:
    ShowFormSingle(Toolkit& toolkit, Display& display);

    /// Set before `startShowing`; outlives the form's use of it.
    const Database* database = nullptr;
    /// Opens the details of a relation. Set before the form is shown.
    std::function<void(int contactId, int relatedId)> openDetails;

    /// Shows the contact that owns the address. Strengths are relative to the relation that is
    /// strongest now.
    void startShowing(const std::string& address);
    /// Builds the tree of the contact that owns the address, or one node that says that there is no
    /// such contact.
    void fillTree(const std::string& address);
    /// Updates the tree after a change of the database.
    void refresh();
    void show() { window->show(); }

    const std::unique_ptr<Window> window;
    TreeView& presTree;

 private:
    void openMenu(ScreenPoint where);
    void detailsMenuItemClick();
    void copyMenuItemClick();

    FormLayout layout_;
    Display& display_;
    PopupMenu& showmenu_;
    MenuItem& detailsMenuItem_;
    MenuItem& copyMenuItem_;
    std::string address_;
    std::int64_t strongestWeight_ = 0;
};

}  // namespace pelk
