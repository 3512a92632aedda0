#pragma once
// Collects the contacts that are one person, and merges them into the first.

#include <functional>
#include <memory>
#include <string>

#include "db/database.h"
#include "db/storage.h"
#include "platform/controls.h"
#include "platform/platform.h"
#include "views/form_layout.h"

namespace pelk {

class mergeForm {
 public:
    mergeForm(Toolkit& toolkit, const Platform& platform, Storage& storage);

    /// Set before `addContact`; outlives the form's use of it.
    Database* database = nullptr;
    /// Called when a merge has changed the database.
    std::function<void()> databaseChanged;

    /// Adds a contact, unless it is in the list, as the text says it. Opens the form, empty but for
    /// this contact, when it is not open.
    void addContact(int id, const std::string& text);
    /// Takes the contacts out of the list that are no longer in the database.
    void refresh();

    const std::unique_ptr<Window> window;
    Label& Label1;
    ListView& listView;
    Label& Label2;
    Button& Delcmd;
    Label& Mergelbl1;
    TextBox& MergeName;
    Button& mergeButton;

 private:
    void load();
    void delcmdClick();
    void mergeButtonClick();

    FormLayout layout_;
    Platform platform_;
    Storage& storage_;
};

}  // namespace pelk
