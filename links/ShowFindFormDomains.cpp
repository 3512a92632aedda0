#include "links/ShowFindFormDomains.h"

#include <algorithm>

#include "links/best_chains.h"
#include "links/staircase.h"
#include "views/fast_tree.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{6600, 6000};
constexpr int kShortestWidth = 2200;
constexpr int kButtonTop = bottomButton(kInnerSize, 1).top;
constexpr Rect kTreeBounds{0, 0, kInnerSize.width, kButtonTop - kFormMargin};
constexpr Rect kShortestBounds{kFormMargin, kButtonTop, kShortestWidth, kFormButton.height};

}  // namespace

ShowFindFormDomains::ShowFindFormDomains(Toolkit& toolkit)
    : window(toolkit.createWindow()),
      presTree(window->addTreeView({})),
      shortestButton(window->addButton({}, "Show the best link")),
      okButton(window->addButton({}, "OK")),
      layout_(*window, kInnerSize) {
    window->setCaption("All possible links between domains");
    layout_.add(presTree, kTreeBounds, kAnchorFill);
    layout_.add(shortestButton, kShortestBounds, {.top = 1});
    layout_.add(okButton, bottomButton(kInnerSize, 1), kAnchorBottomRight);
    shortestButton.onClick = [this] { shortestButtonClick(); };
    okButton.onClick = [this] { window->hide(); };
}

void ShowFindFormDomains::fill(const std::vector<LinkChain>& chains) {
    chains_ = chains;
    maxWeight_ = std::max(maxWeight_, db->strongestWeight());
    fastClear(presTree);
    const RedrawSuspension suspension(presTree);
    TreeModel& tree = presTree.model();
    TreeNode& root = tree.add(tree.root(), sourceDomain + "<->" + targetDomain);
    tree.setImage(root, TreeImage::Many);
    for (const LinkChain& chain : chains) {
        TreeNode& first = addStaircase(presTree, root, chain.ids, *db, maxWeight_, StairKeys::None);
        tree.setTag(first, chain.cost);
    }
    presTree.setExpanded(root, true);
}

void ShowFindFormDomains::refresh() {
    maxWeight_ = std::max(maxWeight_, db->strongestWeight());
    TreeModel& tree = presTree.model();
    const std::vector<TreeNode*>& shown = tree.firstByIndex()->children();
    for (std::size_t at = 0; at < chains_.size(); ++at)
        showChain(tree, *shown[at], chains_[at].ids, *db, maxWeight_);
}

/// Expands every chain of the lowest cost and collapses the others.
void ShowFindFormDomains::shortestButtonClick() {
    TreeNode* const root = presTree.model().firstByIndex();
    if (root == nullptr)
        return;
    const RedrawSuspension suspension(presTree);
    std::vector<int> costs;
    for (TreeNode* const first : root->children()) {
        setChainExpanded(presTree, *first, false);
        costs.push_back(std::get<int>(first->tag()));
    }
    presTree.setExpanded(*root, true);
    for (const std::size_t best : bestChains(costs))
        setChainExpanded(presTree, *root->children()[best], true);
}

}  // namespace pelk
