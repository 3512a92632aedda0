#include "addin/HelpForm.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{4200, 1300};
constexpr int kMargin = 200;
constexpr Rect kLabelBounds{kMargin, kMargin, kInnerSize.width - 2 * kMargin, 300};
constexpr Rect kOkBounds{(kInnerSize.width - 1300) / 2, kInnerSize.height - kMargin - 330, 1300,
                         330};

}  // namespace

HelpForm::HelpForm(Toolkit& toolkit, const Platform& platform)
    : window(toolkit.createWindow()),
      helpLabel(window->addLabel(kLabelBounds, "The help opens in a window of its own.")),
      OK(window->addButton(kOkBounds, "OK")),
      platform_(platform) {
    window->setCaption("Help");
    window->setInnerSize(kInnerSize);
    window->setMinimumInnerSize(kInnerSize);
    OK.onClick = [this] { window->hide(); };
}

void HelpForm::doHelp() {
    platform_.shell.openHelp();
}

}  // namespace pelk
