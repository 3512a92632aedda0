#include "addin/HelpForm.h"

#include "platform/form_sizes.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{4200, 1300};
constexpr Rect kLabelBounds{kWideMargin, kWideMargin, kInnerSize.width - 2 * kWideMargin, 300};

}  // namespace

HelpForm::HelpForm(Toolkit& toolkit, Shell& shell)
    : window(toolkit.createWindow()),
      helpLabel(window->addLabel(kLabelBounds, "The help opens in its own window.")),
      OK(window->addButton(centeredButton(kInnerSize), "OK")),
      shell_(shell) {
    window->setCaption("Help");
    window->setInnerSize(kInnerSize);
    window->setMinimumInnerSize(kInnerSize);
    OK.onClick = [this] { window->hide(); };
}

void HelpForm::doHelp() {
    shell_.openHelp();
}

}  // namespace pelk
