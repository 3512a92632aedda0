#include "addin/aboutForm.h"

#include <string>

#include "addin/product.h"
#include "platform/form_sizes.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{5400, 1650};
constexpr Rect kLabelBounds{kWideMargin, kWideMargin, kInnerSize.width - 2 * kWideMargin, 700};

std::string productText() {
    return std::string(kProductName) + " " + kProductVersion +
           "\nA contact management and a connections finder tool.";
}

}  // namespace

aboutForm::aboutForm(Toolkit& toolkit)
    : window(toolkit.createWindow()),
      productLabel(window->addLabel(kLabelBounds, productText())),
      okButton(window->addButton(centeredButton(kInnerSize), "OK")) {
    window->setCaption("About Pelk");
    window->setInnerSize(kInnerSize);
    window->setMinimumInnerSize(kInnerSize);
    okButton.onClick = [this] { window->hide(); };
}

}  // namespace pelk
