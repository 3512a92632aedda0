#include "links/ShowFindFormSimple.h"

#include <algorithm>

#include "links/staircase.h"
#include "views/fast_tree.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{6600, 4200};
constexpr int kMargin = 150;
constexpr Size kButtonSize{1300, 330};
constexpr int kButtonTop = kInnerSize.height - kMargin - kButtonSize.height;
constexpr Rect kTreeBounds{0, 0, kInnerSize.width, kButtonTop - kMargin};
constexpr Rect kOkBounds{kInnerSize.width - kMargin - kButtonSize.width, kButtonTop,
                         kButtonSize.width, kButtonSize.height};

}  // namespace

ShowFindFormSimple::ShowFindFormSimple(Toolkit& toolkit)
    : window(toolkit.createWindow()),
      presTree(window->addTreeView({})),
      okButton(window->addButton({}, "OK")),
      layout_(*window, kInnerSize) {
    window->setCaption("The best path towards the requested contact");
    layout_.add(presTree, kTreeBounds, kFollowsBoth);
    layout_.add(okButton, kOkBounds, kStaysAtBottomRight);
    okButton.onClick = [this] { window->hide(); };
}

void ShowFindFormSimple::fill() {
    maxWeight_ = std::max(maxWeight_, db->strongestWeight());
    fastClear(presTree);
    const RedrawSuspension suspension(presTree);
    addStaircase(presTree, presTree.model().root(), path, *db, maxWeight_, StairKeys::Contacts);
}

}  // namespace pelk
