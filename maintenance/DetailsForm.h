#pragma once
// How strong one relation is: the two contacts, and their e-mails against those of the strongest
// relation of all.

#include <memory>

#include "db/database.h"
#include "platform/controls.h"

namespace pelk {

class DetailsForm {
 public:
    explicit DetailsForm(Toolkit& toolkit);

    /// Set before `fillInfo`; outlives the form's use of it.
    const Database* database = nullptr;

    /// Shows the relation of two contacts, named in this order; says so when they have none.
    void fillInfo(int firstId, int secondId);
    /// Shows what has become of the relation after a change of the database.
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

 private:
    int firstId_ = 0;
    int secondId_ = 0;
};

}  // namespace pelk
