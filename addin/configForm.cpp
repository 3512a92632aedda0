#include "addin/configForm.h"

#include <algorithm>
#include <string>

#include "db/thresholds.h"
#include "maintenance/saved_change.h"
#include "maintenance/threshold_edit.h"
#include "platform/form_sizes.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{6800, 1950};
constexpr int kRowHeight = 330;
constexpr int kStrongTop = 200;
constexpr int kWeakTop = 700;

constexpr Rect textAt(int top) {
    return {kFormMargin, top, 2150, kRowHeight};
}
constexpr Rect sliderAt(int top) {
    return {2400, top, 1800, kRowHeight};
}
constexpr Rect valueAt(int top) {
    return {4250, top, 350, kRowHeight};
}
constexpr Rect unitAt(int top) {
    return {4600, top, 2050, kRowHeight};
}

}  // namespace

configForm::configForm(Toolkit& toolkit, Dialogs& dialogs, Storage& storage)
    : window(toolkit.createWindow()),
      Label1(window->addLabel(textAt(kStrongTop), "Strong relation (more than):")),
      maxSlider(window->addSlider(sliderAt(kStrongTop))),
      maxValueLabel(window->addLabel(valueAt(kStrongTop), "")),
      Label4(window->addLabel(unitAt(kStrongTop), "(% of strongest relation)")),
      Label3(window->addLabel(textAt(kWeakTop), "Weak relation (less than):")),
      minSlider(window->addSlider(sliderAt(kWeakTop))),
      minValueLabel(window->addLabel(valueAt(kWeakTop), "")),
      Label2(window->addLabel(unitAt(kWeakTop), "(% of strongest relation)")),
      okButton(window->addButton(bottomButton(kInnerSize, 2), "OK")),
      cancelButton(window->addButton(bottomButton(kInnerSize, 1), "Cancel")),
      dialogs_(dialogs),
      storage_(storage) {
    window->setCaption("Configure the representation of your links");
    window->setInnerSize(kInnerSize);
    window->setMinimumInnerSize(kInnerSize);
    for (Slider* const slider : {&maxSlider, &minSlider}) {
        slider->setRange(0, 100);
        slider->onChange = [this] { showValues(); };
    }
    okButton.onClick = [this] { okButtonClick(); };
    cancelButton.onClick = [this] { window->hide(); };
    window->setDefaultButton(okButton);
}

void configForm::showModal() {
    const Thresholds thresholds = database->thresholds();
    maxSlider.setValue(static_cast<int>(roundToInteger(std::clamp(thresholds.strong, 0., 100.))));
    minSlider.setValue(static_cast<int>(roundToInteger(std::clamp(thresholds.weak, 0., 100.))));
    showValues();
    window->showModal();
}

void configForm::showValues() {
    maxValueLabel.setText(std::to_string(maxSlider.value()));
    minValueLabel.setText(std::to_string(minSlider.value()));
}

void configForm::okButtonClick() {
    const int strong = maxSlider.value();
    const int weak = minSlider.value();
    if (!areAcceptable(strong, weak)) {
        dialogs_.message(kUnacceptableThresholds, Buttons::Ok);
        return;
    }
    tellIfUnsaved(dialogs_, [&] { changeThresholds(*database, storage_, strong, weak); });
    window->hide();
}

}  // namespace pelk
