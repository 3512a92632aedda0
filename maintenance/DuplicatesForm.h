#pragma once
// Suggests contacts that are likely one person, each pair with its reason. It merges nothing
// itself.

#include <cstddef>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "db/database.h"
#include "maintenance/rejected_duplicates.h"
#include "platform/controls.h"
#include "platform/language.h"
#include "platform/settings.h"
#include "views/form_layout.h"

namespace pelk {

class DuplicatesForm {
 public:
    /// The references outlive the form.
    DuplicatesForm(Toolkit& toolkit, Settings& settings, const Language& language);

    /// Set before `fill`; the database outlives the form's use of it.
    const Database* database = nullptr;
    /// Adds a contact to those that the user is about to merge. Set before the form is shown.
    std::function<void(int contactId, const std::string& text)> mergeContact;

    /// Lists the suggestions.
    void fill();
    /// Updates the list after a change of the database.
    void refresh();
    void show() { window->show(); }

    const std::unique_ptr<Window> window;
    Label& countLabel;
    TreeView& pairsTree;
    Button& mergeButton;
    Button& notSameButton;
    Button& showAgainButton;
    Button& closeButton;

 private:
    struct Pair {
        int id = 0;
        int otherId = 0;
        std::string reason;
    };

    void placeControls();
    void findPairs();
    void addPair(const Pair& pair);
    std::set<std::size_t> selectedPairs();
    void updateButtons();
    void mergeButtonClick();
    void notSameButtonClick();
    void showAgainButtonClick();

    FormLayout layout_;
    const Language& language_;
    RejectedDuplicates rejected_;
    /// By row of the tree.
    std::vector<Pair> pairs_;
    /// How many suggestions are not shown because the user has rejected them.
    std::size_t hidden_ = 0;
};

}  // namespace pelk
