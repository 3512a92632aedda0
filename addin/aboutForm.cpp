#include "addin/aboutForm.h"

#include <string>

#include "addin/product.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{5400, 1650};
constexpr int kMargin = 200;
constexpr Rect kLabelBounds{kMargin, kMargin, kInnerSize.width - 2 * kMargin, 700};
constexpr Rect kOkBounds{(kInnerSize.width - 1300) / 2, kInnerSize.height - kMargin - 330, 1300,
                         330};

std::string productText() {
    return std::string(kProductName) + " " + kProductVersion +
           "\nA contact management and a connections finder tool.";
}

}  // namespace

aboutForm::aboutForm(Toolkit& toolkit)
    : window(toolkit.createWindow()),
      productLabel(window->addLabel(kLabelBounds, productText())),
      okButton(window->addButton(kOkBounds, "OK")) {
    window->setCaption("About Pelk");
    window->setInnerSize(kInnerSize);
    window->setMinimumInnerSize(kInnerSize);
    okButton.onClick = [this] { window->hide(); };
}

}  // namespace pelk
