#include "maintenance/DuplicatesForm.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "maintenance/duplicates.h"
#include "views/contact_text.h"
#include "views/fast_tree.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{7200, 5400};
constexpr int kWidth = kInnerSize.width - 2 * kFormMargin;
constexpr Rect kLabelBounds{kFormMargin, kFormMargin, kWidth, 280};
constexpr int kTreeTop = 480;
constexpr int kButtonTop = bottomButton(kInnerSize, 1).top;
constexpr Rect kTreeBounds{kFormMargin, kTreeTop, kWidth, kButtonTop - kFormMargin - kTreeTop};
/// So many pairs are shown with both contacts; the others open on a click.
constexpr std::size_t kExpanded = 500;

std::string countText(std::size_t shown, std::size_t hidden) {
    std::string text = shown == 0 ? "No two contacts look like one person"
                       : shown == 1
                           ? "1 pair of contacts may be one person"
                           : std::to_string(shown) + " pairs of contacts may be one person";
    return hidden == 0 ? text : text + " (" + std::to_string(hidden) + " hidden)";
}

/// A contact stands for its pair.
const TreeNode* pairOf(const TreeNode* node) {
    return node == nullptr || node->isTopLevel() ? node : node->parent();
}

}  // namespace

DuplicatesForm::DuplicatesForm(Toolkit& toolkit, Settings& settings, const Language& language)
    : window(toolkit.createWindow()),
      countLabel(window->addLabel({}, "")),
      pairsTree(window->addTreeView({})),
      mergeButton(window->addButton({}, "&Merge...")),
      notSameButton(window->addButton({}, "&Not the same")),
      showAgainButton(window->addButton({}, "&Show hidden")),
      closeButton(window->addButton({}, "&Close")),
      layout_(*window, kInnerSize),
      language_(language),
      rejected_(settings) {
    window->setCaption("Duplicates");
    placeControls();
    pairsTree.allowMultipleSelection();
    pairsTree.detailOf = [this](const TreeNode& node) {
        return node.isTopLevel() ? pairs_[static_cast<std::size_t>(node.row())].reason : "";
    };
    pairsTree.onSelect = [this](TreeNode&) { updateButtons(); };
    mergeButton.onClick = [this] { mergeButtonClick(); };
    notSameButton.onClick = [this] { notSameButtonClick(); };
    showAgainButton.onClick = [this] { showAgainButtonClick(); };
    closeButton.onClick = [this] { window->hide(); };
}

void DuplicatesForm::placeControls() {
    layout_.add(countLabel, kLabelBounds, kAnchorTop);
    layout_.add(pairsTree, kTreeBounds, kAnchorFill);
    layout_.add(mergeButton, bottomButton(kInnerSize, 4), kAnchorBottomRight);
    layout_.add(notSameButton, bottomButton(kInnerSize, 3), kAnchorBottomRight);
    layout_.add(showAgainButton, bottomButton(kInnerSize, 2), kAnchorBottomRight);
    layout_.add(closeButton, bottomButton(kInnerSize, 1), kAnchorBottomRight);
}

void DuplicatesForm::fill() {
    fastClear(pairsTree);
    findPairs();
    {
        const RedrawSuspension suspension(pairsTree);
        for (const Pair& pair : pairs_)
            addPair(pair);
    }
    countLabel.setText(countText(pairs_.size(), hidden_));
    updateButtons();
}

/// The selected pair stays selected, and the rows in view stay in view, unless they are gone. In
/// place of a pair that is gone, the one that follows is selected, so that the keyboard leads
/// through the list.
void DuplicatesForm::refresh() {
    const TreeNode* const selected = pairOf(pairsTree.selected());
    const TreeNode* const top = pairOf(pairsTree.firstVisible());
    const std::string selectedKey = selected == nullptr ? "" : selected->key();
    const std::set<std::size_t> rows = selectedPairs();
    const std::size_t topRow = top == nullptr ? 0 : static_cast<std::size_t>(top->row());
    fill();
    const auto& nodes = pairsTree.model().root().children();
    if (topRow > 0 && !nodes.empty())
        pairsTree.scrollToTop(*nodes[std::min(topRow, nodes.size() - 1)]);
    TreeNode* shown = pairsTree.model().find(selectedKey);
    if (shown == nullptr && !rows.empty() && !nodes.empty())
        shown = nodes[std::min(*rows.begin(), nodes.size() - 1)];
    pairsTree.select(shown);
    updateButtons();
}

void DuplicatesForm::findPairs() {
    pairs_.clear();
    hidden_ = 0;
    for (Duplicate& found : findDuplicates(*database, language_)) {
        const std::optional<Contact> one = database->contact(found.id);
        const std::optional<Contact> other = database->contact(found.otherId);
        if (rejected_.contains(*one, *other))
            ++hidden_;
        else
            pairs_.push_back({found.id, found.otherId, std::move(found.text)});
    }
}

void DuplicatesForm::addPair(const Pair& pair) {
    TreeModel& tree = pairsTree.model();
    const std::string name = database->nameOf(pair.id);
    const std::string otherName = database->nameOf(pair.otherId);
    TreeNode& node = tree.add(tree.root(), name == otherName ? name : name + " - " + otherName);
    tree.setImage(node, TreeImage::Many);
    tree.setKey(node, std::to_string(pair.id) + '-' + std::to_string(pair.otherId));
    for (const int id : {pair.id, pair.otherId})
        tree.setImage(tree.add(node, describe(*database->contact(id))), TreeImage::Contact);
    if (static_cast<std::size_t>(node.row()) < kExpanded)
        pairsTree.setExpanded(node, true);
}

std::set<std::size_t> DuplicatesForm::selectedPairs() {
    std::set<std::size_t> rows;
    for (const TreeNode* const node : pairsTree.selectedNodes())
        rows.insert(static_cast<std::size_t>(pairOf(node)->row()));
    return rows;
}

void DuplicatesForm::updateButtons() {
    const bool any = !selectedPairs().empty();
    mergeButton.setEnabled(any);
    notSameButton.setEnabled(any);
    showAgainButton.setEnabled(hidden_ > 0);
}

/// Collects all before the first call, which may change the list.
void DuplicatesForm::mergeButtonClick() {
    std::set<int> ids;
    for (const std::size_t row : selectedPairs())
        ids.insert({pairs_[row].id, pairs_[row].otherId});
    for (const int id : ids)
        if (const std::optional<Contact> contact = database->contact(id))
            mergeContact(id, describe(*contact));
}

void DuplicatesForm::notSameButtonClick() {
    for (const std::size_t row : selectedPairs())
        rejected_.add(*database->contact(pairs_[row].id), *database->contact(pairs_[row].otherId));
    refresh();
}

void DuplicatesForm::showAgainButtonClick() {
    rejected_.clear();
    refresh();
}

}  // namespace pelk
