#pragma once
// Shows one relation: the two contacts, and their number of e-mails beside that of the strongest
// relation.

#include <functional>
#include <memory>

#include "db/database.h"
#include "platform/controls.h"

namespace pelk {

class DetailsForm {
 public:
    explicit DetailsForm(Toolkit& toolkit);

    /// Set before `fillInfo`; outlives the form's use of it.
    const Database* database = nullptr;

    /// Shows when the two contacts exchanged e-mails.
    std::function<void(int firstId, int secondId)> openOverTime;

    /// Shows the relation of two contacts, named in this order, or a text that there is none.
    void fillInfo(int firstId, int secondId);
    /// Updates the form after a change of the database.
    void refresh() { fillInfo(firstId_, secondId_); }
    void show() { window->show(); }

    const std::unique_ptr<Window> window;
    Label& Label1;
    Label& part1Label;
    Label& Label2;
    Label& part2Label;
    ProgressBar& weightBar;
    Label& moreLabel;
    Button& okButton;
    /// In the strip below.
    Button& overTimeButton;

 private:
    int firstId_ = 0;
    int secondId_ = 0;
};

}  // namespace pelk
