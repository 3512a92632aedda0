#include "addin/configForm.h"

#include <algorithm>
#include <charconv>
#include <optional>
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
constexpr Rect boxAt(int top) {
    return {2330, top, 420, 270};
}
constexpr Rect sliderAt(int top) {
    return {2800, top, 1400, kRowHeight};
}
constexpr Rect valueAt(int top) {
    return {4250, top, 350, kRowHeight};
}
constexpr Rect unitAt(int top) {
    return {4600, top, 2050, kRowHeight};
}

std::optional<int> percentageIn(const std::string& text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    return isNumber && value >= 0 && value <= 100 ? std::optional(value) : std::nullopt;
}

}  // namespace

configForm::configForm(Toolkit& toolkit, Dialogs& dialogs, Storage& storage)
    : window(toolkit.createWindow()),
      Label1(window->addLabel(textAt(kStrongTop), "Strong relation (more than):")),
      maxBox(window->addTextBox(boxAt(kStrongTop))),
      maxSlider(window->addSlider(sliderAt(kStrongTop))),
      maxValueLabel(window->addLabel(valueAt(kStrongTop), "")),
      Label4(window->addLabel(unitAt(kStrongTop), "(% of strongest relation)")),
      Label3(window->addLabel(textAt(kWeakTop), "Weak relation (less than):")),
      minBox(window->addTextBox(boxAt(kWeakTop))),
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
        slider->onChange = [this] {
            showValues();
            showNumbers();
        };
    }
    maxBox.onChange = [this] { typed(maxBox, maxSlider); };
    minBox.onChange = [this] { typed(minBox, minSlider); };
    okButton.onClick = [this] { okButtonClick(); };
    cancelButton.onClick = [this] { window->hide(); };
    window->setDefaultButton(okButton);
}

void configForm::showModal() {
    const Thresholds thresholds = database->thresholds();
    maxSlider.setValue(static_cast<int>(roundToInteger(std::clamp(thresholds.strong, 0., 100.))));
    minSlider.setValue(static_cast<int>(roundToInteger(std::clamp(thresholds.weak, 0., 100.))));
    showValues();
    showNumbers();
    window->showModal();
}

void configForm::showValues() {
    maxValueLabel.setText(std::to_string(maxSlider.value()));
    minValueLabel.setText(std::to_string(minSlider.value()));
}

void configForm::showNumbers() {
    maxBox.setText(std::to_string(maxSlider.value()));
    minBox.setText(std::to_string(minSlider.value()));
}

/// What is not a percentage moves nothing, and `okButtonClick` refuses it.
void configForm::typed(const TextBox& box, Slider& slider) {
    if (const std::optional<int> value = percentageIn(box.text()))
        slider.setValue(*value);
    showValues();
}

void configForm::okButtonClick() {
    if (!percentageIn(maxBox.text()) || !percentageIn(minBox.text())) {
        dialogs_.message("A threshold is a whole number from 0 to 100.", Buttons::Ok);
        return;
    }
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
