#pragma once
// Sets the two thresholds between strong, medium and weak relations.

#include <memory>

#include "db/database.h"
#include "db/storage.h"
#include "platform/controls.h"
#include "platform/dialogs.h"

namespace pelk {

class configForm {
 public:
    configForm(Toolkit& toolkit, Dialogs& dialogs, Storage& storage);

    /// Set before `showModal`; outlives the form's use of it.
    Database* database = nullptr;

    /// Shows the thresholds of the database modally. Returns when the user has applied new ones or
    /// cancelled.
    void showModal();

    const std::unique_ptr<Window> window;
    Label& Label1;
    /// The thresholds as numbers that can be typed.
    TextBox& maxBox;
    Slider& maxSlider;
    Label& maxValueLabel;
    Label& Label4;
    Label& Label3;
    TextBox& minBox;
    Slider& minSlider;
    Label& minValueLabel;
    Label& Label2;
    Button& okButton;
    Button& cancelButton;

 private:
    void showValues();
    void showNumbers();
    void typed(const TextBox& box, Slider& slider);
    void okButtonClick();

    Dialogs& dialogs_;
    Storage& storage_;
};

}  // namespace pelk
