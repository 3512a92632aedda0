#pragma once
// Lists the people with whom the user, or a chosen contact, had a strong or medium relation and has
// exchanged no e-mail for some time.

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "db/database.h"
#include "platform/clock.h"
#include "platform/controls.h"
#include "views/form_layout.h"
#include "views/hidden_contacts.h"
#include "views/lost_sight.h"

namespace pelk {

class LostSightForm {
 public:
    /// `clock` tells today's date.
    LostSightForm(Toolkit& toolkit, Clock& clock);

    /// Set before a fill; outlives the form's use of it.
    const Database* database = nullptr;
    /// Outlives the form's use of it; null hides nobody.
    HiddenContacts* hidden = nullptr;
    /// Return the history and the user's own addresses; may throw `Error`. Set before a fill.
    std::function<const History&()> history;
    std::function<std::vector<std::string>()> ownAddresses;
    /// Shows a contact in the relations view.
    std::function<void(int contactId)> showContact;

    /// Fill the form for the user, or for a contact.
    void fillForUser() { fill(kUser); }
    void fill(int contactId);
    /// Updates the form after a change of the database.
    void refresh() { fill(contactId_); }
    void show() { window->show(); }

    const std::unique_ptr<Window> window;
    Label& titleLabel;
    Label& timeLabel;
    OptionButton& halfYearRadio;
    OptionButton& yearRadio;
    OptionButton& twoYearsRadio;
    OptionButton& fiveYearsRadio;
    TreeView& tree;
    Label& countLabel;
    Button& goButton;
    Button& userButton;
    Button& okButton;

 private:
    /// Stands for all contacts with one of the user's addresses.
    static constexpr int kUser = 0;

    void place();
    void choose(int months);
    void fillTree(const LostSight& lost);
    std::string summary(const std::vector<int>& people, const LostSight& lost) const;
    void goToSelected();

    Clock& clock_;
    FormLayout layout_;
    int months_ = 12;
    int contactId_ = kUser;
    /// In the order of the tree's rows.
    std::vector<LostContact> lost_;
};

}  // namespace pelk
