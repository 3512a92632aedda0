#include "maintenance/mergeForm.h"

#include <algorithm>
#include <cstddef>

#include "maintenance/contact_edits.h"
#include "maintenance/merge_name.h"
#include "maintenance/saved_change.h"
#include "views/contact_text.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{6000, 5500};
constexpr int kWidth = kInnerSize.width - 2 * kFormMargin;
constexpr Rect kTopLabelBounds{kFormMargin, 120, kWidth, 560};
constexpr Rect kListBounds{kFormMargin, 720, kWidth, 2200};
constexpr Rect kRemoveLabelBounds{kFormMargin, 3000, kWidth, 280};
constexpr Rect kRemoveBounds{kFormMargin, 3320, 2000, 330};
constexpr Rect kNameLabelBounds{kFormMargin, 3800, kWidth, 500};
constexpr Rect kNameBounds{kFormMargin, 4320, kWidth, 300};

/// Gives the column its width.
constexpr const char* kColumnHeader = "ABCABCABCABCABCABCABCABCABCABCABCABCABC";

}  // namespace

/// The repeated word "to" in the first label is kept on purpose: users and the help know the text.
mergeForm::mergeForm(Toolkit& toolkit, Dialogs& dialogs, Storage& storage, const Language& language)
    : window(toolkit.createWindow()),
      Label1(window->addLabel({},
                              "Select the contacts that belong to to the same person from the "
                              "\"Relations Tree\"")),
      listView(window->addListView({})),
      Label2(
          window->addLabel({}, "Press The Button Below to Remove a Selected Item From the List")),
      Delcmd(window->addButton({}, "&Remove From List")),
      Mergelbl1(window->addLabel({},
                                 "Please type below the real name of the person to whom all the "
                                 "above contacts will be mapped")),
      MergeName(window->addTextBox({})),
      mergeButton(window->addButton({}, "&Merge")),
      cancelButton(window->addButton({}, "&Cancel")),
      search(*window, listView, "Search for a contact to add"),
      foundLabel(window->addLabel({}, "")),
      addButton(window->addButton({}, "&Add")),
      layout_(*window, kInnerSize),
      dialogs_(dialogs),
      storage_(storage),
      mergeSearch_(foundLabel, searched_, hidden, language) {
    window->setCaption("Merge contacts");
    layout_.add(Label1, kTopLabelBounds, kAnchorTop);
    layout_.add(listView, kListBounds, kAnchorFill);
    layout_.add(Label2, kRemoveLabelBounds, kAnchorBottom);
    layout_.add(Delcmd, kRemoveBounds, {.top = 1});
    layout_.add(Mergelbl1, kNameLabelBounds, kAnchorBottom);
    layout_.add(MergeName, kNameBounds, kAnchorBottom);
    layout_.add(mergeButton, bottomButton(kInnerSize, 1), kAnchorBottomRight);
    layout_.add(cancelButton, bottomButton(kInnerSize, 2), kAnchorBottomRight);
    placeSearch();
    listView.setColumnHeader(kColumnHeader);
    Delcmd.onClick = [this] { delcmdClick(); };
    MergeName.onChange = [this] { mergeButton.setEnabled(!MergeName.text().empty()); };
    mergeButton.onClick = [this] { mergeButtonClick(); };
    window->setDefaultButton(mergeButton);
    cancelButton.onClick = [this] { window->hide(); };
}

/// The search stands in a strip above the given controls.
void mergeForm::placeSearch() {
    constexpr int kStrip = 700;
    constexpr int kFoundTop = 380 - kStrip;
    constexpr int kAddLeft = kInnerSize.width - kFormMargin - kFormButton.width;
    window->setStrips(kStrip, 0);
    search.place(layout_, kFormMargin, 80 - kStrip, kWidth);
    layout_.add(foundLabel,
                {kFormMargin, kFoundTop, kAddLeft - 2 * kFormMargin, kFormButton.height},
                kAnchorTop);
    layout_.add(addButton, {kAddLeft, kFoundTop, kFormButton.width, kFormButton.height},
                {.left = 1});
    addButton.setEnabled(false);
    search.setTarget(mergeSearch_);
    search.setEnter([this] { addFound(); });
    search.onShown = [this](bool shown) { addButton.setEnabled(shown); };
    addButton.onClick = [this] { addFound(); };
    window->setShortcut(Shortcut::Find, [this] { search.focus(); });
}

void mergeForm::addFound() {
    if (const std::optional<Contact> found = mergeSearch_.shown())
        addContact(found->id, describe(*found));
}

void mergeForm::addContact(int id, const std::string& text) {
    searched_ = database;
    if (!window->isVisible())
        load();
    const std::string tag = std::to_string(id);
    if (std::none_of(listView.rows().begin(), listView.rows().end(),
                     [&tag](const ListRow& row) { return row.tag == tag; }))
        listView.addRow({text, tag});
    suggestName();
}

void mergeForm::load() {
    while (!listView.rows().empty())
        listView.removeRow(listView.rows().size() - 1);
    search.clear();
    suggested_.clear();
    MergeName.setText("");
    mergeButton.setEnabled(false);
    window->show();
}

/// Fills in the name that all the contacts have. A name that the user has typed stays.
void mergeForm::suggestName() {
    if (MergeName.text() != suggested_)
        return;
    suggested_ = sharedName(*database, ids());
    MergeName.setText(suggested_);
    mergeButton.setEnabled(!suggested_.empty());
}

std::vector<int> mergeForm::ids() const {
    std::vector<int> ids;
    for (const ListRow& row : listView.rows())
        ids.push_back(readContactId(row.tag));
    return ids;
}

/// Goes from the last row to the first, so that removing a row does not move the rows to come.
void mergeForm::delcmdClick() {
    for (std::size_t row = listView.rows().size(); row-- > 0;)
        if (listView.isSelected(row))
            listView.removeRow(row);
    suggestName();
}

void mergeForm::refresh() {
    for (std::size_t row = listView.rows().size(); row-- > 0;)
        if (!database->contact(readContactId(listView.rows()[row].tag)))
            listView.removeRow(row);
    suggestName();
}

void mergeForm::mergeButtonClick() {
    const std::vector<int> contacts = ids();
    if (contacts.size() < 2) {
        dialogs_.message("At least two contacts must be added to the list!", Buttons::Ok);
        return;
    }
    tellIfUnsaved(dialogs_,
                  [&] { mergeContacts(*database, storage_, contacts, MergeName.text()); });
    window->hide();
    databaseChanged();
}

}  // namespace pelk
