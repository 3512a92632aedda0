#pragma once
// Asks for the target contact of a link search and runs the search.

#include <functional>
#include <memory>
#include <vector>

#include "db/database.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "views/form_layout.h"
#include "views/tree_search.h"

namespace pelk {

class findForm {
 public:
    findForm(Toolkit& toolkit, Dialogs& dialogs, const Language& language);

    /// Set before `fillList`; the database outlives the form's use of it.
    const Database* db = nullptr;
    /// Contacts that are not listed; null for none.
    HiddenContacts* hidden = nullptr;
    /// The contact from which the link starts.
    int sourceId = 0;
    /// Called with the chain found. Set before the form is shown.
    std::function<void(const std::vector<int>& path)> showResult;

    /// Lists all contacts that are not hidden by name.
    void fillList();
    /// Updates the list after a change of the database.
    void refresh() { fillList(); }
    void show() { window->show(); }

    const std::unique_ptr<Window> window;
    Label& Label1;
    TreeView& listTree;
    SearchField search;
    Button& okButton;
    Button& cancelButton;

 private:
    void okButtonClick();

    FormLayout layout_;
    Dialogs& dialogs_;
    ContactNodes contactNodes_;
};

}  // namespace pelk
