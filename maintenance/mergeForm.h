#pragma once
// Collects the contacts of one person and merges them into the first.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "db/database.h"
#include "db/storage.h"
#include "maintenance/merge_search.h"
#include "platform/controls.h"
#include "platform/dialogs.h"
#include "views/form_layout.h"

namespace pelk {

class mergeForm {
 public:
    mergeForm(Toolkit& toolkit, Dialogs& dialogs, Storage& storage, const Language& language);

    /// Set before `addContact`; outlives the form's use of it.
    Database* database = nullptr;
    /// Contacts that the search leaves out; null for none.
    HiddenContacts* hidden = nullptr;
    /// Called after a merge.
    std::function<void()> databaseChanged;

    /// Adds a contact under the given text, unless it is in the list already. If the form is
    /// closed, clears the list first and opens the form.
    void addContact(int id, const std::string& text);
    /// Removes deleted contacts from the list.
    void refresh();

    const std::unique_ptr<Window> window;
    Label& Label1;
    ListView& listView;
    Label& Label2;
    Button& Delcmd;
    Label& Mergelbl1;
    TextBox& MergeName;
    Button& mergeButton;
    Button& cancelButton;
    SearchField search;
    Label& foundLabel;
    Button& addButton;

 private:
    void placeSearch();
    void addFound();
    void load();
    void suggestName();
    std::vector<int> ids() const;
    void delcmdClick();
    void mergeButtonClick();

    FormLayout layout_;
    Dialogs& dialogs_;
    Storage& storage_;
    /// The database as the search sees it.
    const Database* searched_ = nullptr;
    MergeSearch mergeSearch_;
    /// The name that the form has filled in, see `suggestName`.
    std::string suggested_;
};

}  // namespace pelk
