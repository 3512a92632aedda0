#include "links/ShowFindFormDomains.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{6600, 6000};
constexpr int kShortestWidth = 2200;
constexpr int kButtonTop = bottomButton(kInnerSize, 1).top;
constexpr Rect kTreeBounds{0, 0, kInnerSize.width, kButtonTop - kFormMargin};
constexpr Rect kShortestBounds{kFormMargin, kButtonTop, kShortestWidth, kFormButton.height};

}  // namespace

ShowFindFormDomains::ShowFindFormDomains(Toolkit& toolkit, const Language& language)
    : window(toolkit.createWindow()),
      presTree(window->addTreeView({})),
      shortestButton(window->addButton({}, "Show the best link")),
      okButton(window->addButton({}, "OK")),
      search(*window, presTree, "Show only chains with"),
      foundOrder(window->addOptionButton({}, "As &found")),
      costOrder(window->addOptionButton({}, "&Cheapest first")),
      layout_(*window, kInnerSize),
      chainsTree_(presTree, db, language) {
    window->setCaption("All possible links between domains");
    layout_.add(presTree, kTreeBounds, kAnchorFill);
    layout_.add(shortestButton, kShortestBounds, {.top = 1});
    layout_.add(okButton, bottomButton(kInnerSize, 1), kAnchorBottomRight);
    shortestButton.onClick = [this] { chainsTree_.showBest(); };
    okButton.onClick = [this] { window->hide(); };
    placeStrip();
}

/// The strip above the tree limits and orders the chains.
void ShowFindFormDomains::placeStrip() {
    constexpr int kStrip = 330;
    constexpr int kTop = 40 - kStrip;
    constexpr int kOrderWidth = 1300;
    constexpr int kOrderLeft = kInnerSize.width - 2 * kOrderWidth;
    constexpr int kMargin = 60;
    window->setStrips(kStrip, 0);
    search.place(layout_, kMargin, kTop, kOrderLeft - 2 * kMargin);
    layout_.add(foundOrder, {kOrderLeft, kTop, kOrderWidth, 250}, {.left = 1});
    layout_.add(costOrder, {kOrderLeft + kOrderWidth, kTop, kOrderWidth, 250}, {.left = 1});
    search.setTarget(chainsTree_);
    foundOrder.setChecked(true);
    foundOrder.onClick = [this] { chainsTree_.setOrder(ChainOrder::AsFound); };
    costOrder.onClick = [this] { chainsTree_.setOrder(ChainOrder::CheapestFirst); };
    window->setShortcut(Shortcut::Find, [this] { search.focus(); });
}

void ShowFindFormDomains::fill(const std::vector<LinkChain>& chains) {
    chainsTree_.fill(sourceDomain + "<->" + targetDomain, chains);
    search.clear();
}

}  // namespace pelk
