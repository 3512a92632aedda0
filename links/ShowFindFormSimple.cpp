#include "links/ShowFindFormSimple.h"

#include <algorithm>
#include <cstddef>

#include "links/staircase.h"
#include "views/fast_tree.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{6600, 4200};
constexpr int kButtonTop = bottomButton(kInnerSize, 1).top;
constexpr Rect kPictureBounds{kFormMargin, kButtonTop, 2400, kFormButton.height};
constexpr Rect kTreeBounds{0, 0, kInnerSize.width, kButtonTop - kFormMargin};

}  // namespace

ShowFindFormSimple::ShowFindFormSimple(Toolkit& toolkit)
    : window(toolkit.createWindow()),
      presTree(window->addTreeView({})),
      okButton(window->addButton({}, "OK")),
      previousButton(window->addButton({}, "&Previous")),
      nextButton(window->addButton({}, "&Next")),
      avoidButton(window->addButton({}, "Not &through this person")),
      allowButton(window->addButton({}, "&Allow again")),
      placeLabel(window->addLabel({}, "")),
      pictureButton(window->addButton({}, "&Show in the picture")),
      layout_(*window, kInnerSize) {
    window->setCaption("The best path towards the requested contact");
    layout_.add(presTree, kTreeBounds, kAnchorFill);
    layout_.add(okButton, bottomButton(kInnerSize, 1), kAnchorBottomRight);
    okButton.onClick = [this] { window->hide(); };
    layout_.add(pictureButton, kPictureBounds, {0, 1, 0, 0});
    pictureButton.onClick = [this] { showInPicture(chains_.shown()); };
    placeStrip();
    presTree.onSelect = [this](TreeNode&) { updateStrip(); };
    previousButton.onClick = [this] {
        chains_.showPrevious();
        showChosen();
    };
    nextButton.onClick = [this] {
        chains_.showNext();
        showChosen();
    };
    avoidButton.onClick = [this] { avoidButtonClick(); };
    allowButton.onClick = [this] {
        chains_.allowLast();
        showChosen();
    };
}

/// The strip above the tree leads to the other chains.
void ShowFindFormSimple::placeStrip() {
    constexpr int kMargin = 60;
    constexpr int kRowHeight = 280;
    constexpr int kStrip = 2 * kRowHeight + 3 * kMargin;
    constexpr int kTop = kMargin - kStrip;
    window->setStrips(kStrip, 0);
    int left = kMargin;
    const auto place = [&](Button& button, int width) {
        layout_.add(button, {left, kTop, width, kRowHeight}, {});
        left += width + kMargin;
    };
    place(previousButton, 1200);
    place(nextButton, 1200);
    place(avoidButton, 2400);
    place(allowButton, 1400);
    layout_.add(placeLabel,
                {kMargin, kTop + kRowHeight + kMargin, kInnerSize.width - 2 * kMargin, kRowHeight},
                kAnchorTop);
}

void ShowFindFormSimple::fill() {
    chains_.start(*db, path);
    showChosen();
}

void ShowFindFormSimple::showChosen() {
    maxWeight_ = std::max(maxWeight_, db->strongestWeight());
    fastClear(presTree);
    {
        const RedrawSuspension suspension(presTree);
        addStaircase(presTree, presTree.model().root(), chains_.shown(), *db, maxWeight_,
                     StairKeys::Contacts);
    }
    updateStrip();
}

void ShowFindFormSimple::refresh() {
    maxWeight_ = std::max(maxWeight_, db->strongestWeight());
    TreeModel& tree = presTree.model();
    showChain(tree, *tree.firstByIndex(), chains_.shown(), *db, maxWeight_);
    chains_.update();
    updateStrip();
}

void ShowFindFormSimple::updateStrip() {
    const std::optional<int> selected = selectedContact();
    previousButton.setEnabled(chains_.hasPrevious());
    nextButton.setEnabled(chains_.hasNext());
    avoidButton.setEnabled(selected && chains_.canAvoid(*selected));
    allowButton.setEnabled(chains_.avoidsAny());
    placeLabel.setText(chains_.summary());
}

/// Each contact is a step below the one before.
std::optional<int> ShowFindFormSimple::selectedContact() {
    const TreeNode* node = presTree.selected();
    if (node == nullptr)
        return std::nullopt;
    std::size_t step = 0;
    for (; !node->isTopLevel(); node = node->parent())
        ++step;
    return chains_.shown()[step];
}

void ShowFindFormSimple::avoidButtonClick() {
    const int id = *selectedContact();
    if (chains_.avoid(id))
        showChosen();
    else
        placeLabel.setText(needsMessage(*db, id));
}

}  // namespace pelk
