#pragma once
// Shows when a contact exchanged e-mails with all others or with one of them: the first and the
// last day, the numbers in each direction, and a chart and a table of the years or months.

#include <functional>
#include <memory>
#include <string>

#include "db/database.h"
#include "platform/controls.h"
#include "views/form_layout.h"
#include "views/over_time.h"

namespace pelk {

class OverTimeForm {
 public:
    explicit OverTimeForm(Toolkit& toolkit);

    /// Set before a fill; outlives the form's use of it.
    const Database* database = nullptr;
    /// Returns the history; may throw `Error`. Set before a fill.
    std::function<const History&()> history;

    /// Fill the form for a contact and all others, or for two contacts.
    void fill(int contactId) { fill(contactId, kAllOthers); }
    void fill(int contactId, int otherId);
    /// Updates the form after a change of the database.
    void refresh() { fill(contactId_, otherId_); }
    void show() { window->show(); }

    const std::unique_ptr<Window> window;
    Label& titleLabel;
    Label& daysLabel;
    Label& sentLabel;
    Label& receivedLabel;
    OptionButton& yearRadio;
    OptionButton& monthRadio;
    BarChart& chart;
    ListView& table;
    Button& okButton;

 private:
    /// No contact has this id.
    static constexpr int kAllOthers = 0;

    void place();
    void choose(Period period);
    void showTotals();
    void showPeriods();
    std::string nameShown(int id) const;
    std::string direction(int fromId, int toId) const;

    FormLayout layout_;
    Period period_ = Period::Yearly;
    int contactId_ = 0;
    int otherId_ = kAllOthers;
    Exchange exchange_;
    /// The totals as one text.
    std::string description_;
};

}  // namespace pelk
