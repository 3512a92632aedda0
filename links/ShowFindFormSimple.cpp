#include "links/ShowFindFormSimple.h"

#include <algorithm>

#include "links/staircase.h"
#include "views/fast_tree.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{6600, 4200};
constexpr int kButtonTop = bottomButton(kInnerSize, 1).top;
constexpr Rect kTreeBounds{0, 0, kInnerSize.width, kButtonTop - kFormMargin};

}  // namespace

ShowFindFormSimple::ShowFindFormSimple(Toolkit& toolkit)
    : window(toolkit.createWindow()),
      presTree(window->addTreeView({})),
      okButton(window->addButton({}, "OK")),
      layout_(*window, kInnerSize) {
    window->setCaption("The best path towards the requested contact");
    layout_.add(presTree, kTreeBounds, kAnchorFill);
    layout_.add(okButton, bottomButton(kInnerSize, 1), kAnchorBottomRight);
    okButton.onClick = [this] { window->hide(); };
}

void ShowFindFormSimple::fill() {
    maxWeight_ = std::max(maxWeight_, db->strongestWeight());
    fastClear(presTree);
    const RedrawSuspension suspension(presTree);
    addStaircase(presTree, presTree.model().root(), path, *db, maxWeight_, StairKeys::Contacts);
}

void ShowFindFormSimple::refresh() {
    maxWeight_ = std::max(maxWeight_, db->strongestWeight());
    TreeModel& tree = presTree.model();
    showChain(tree, *tree.firstByIndex(), path, *db, maxWeight_);
}

}  // namespace pelk
