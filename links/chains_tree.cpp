#include "links/chains_tree.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "links/best_chains.h"
#include "links/staircase.h"
#include "views/fast_tree.h"
#include "views/placeholder.h"

namespace pelk {
namespace {

/// So many chains are expanded when they are shown, and at first only so many are shown of a query.
constexpr std::size_t kExpandedAtOnce = 1000;

/// Whether the tree has all nodes of a chain.
bool isComplete(const TreeNode& first) {
    return first.children().empty() || !isPlaceholder(*first.children().front());
}

}  // namespace

ChainsTree::ChainsTree(TreeView& tree, const Database* const& database, const Language& language)
    : tree_(tree), database_(database), contacts_(language) {
    tree.onExpand = [this](TreeNode& node) {
        const RedrawSuspension suspension(tree_);
        if (&node == rest_)
            addRows(shown_.size());
        addRest(node);
    };
    tree.detailOf = [this](const TreeNode& node) { return detailOf(node); };
}

void ChainsTree::fill(const std::string& title, std::vector<LinkChain> chains) {
    title_ = title;
    chains_ = std::move(chains);
    limited_ = false;
    arrange();
    fillAgain();
}

void ChainsTree::setOrder(ChainOrder order) {
    if (std::exchange(order_, order) == order || root() == nullptr)
        return;
    arrange();
    fillAgain();
}

/// Puts all chains in order.
void ChainsTree::arrange() {
    arranged_.resize(chains_.size());
    std::iota(arranged_.begin(), arranged_.end(), std::size_t{0});
    if (order_ == ChainOrder::CheapestFirst)
        std::stable_sort(arranged_.begin(), arranged_.end(),
                         [this](std::size_t one, std::size_t other) {
                             return chains_[one].cost < chains_[other].cost;
                         });
}

/// A query often leaves nearly all chains, and each key would wait for so many rows.
void ChainsTree::fillAgain() {
    maxWeight_ = std::max(maxWeight_, database_->strongestWeight());
    shown_ = arranged_;
    if (limited_)
        std::erase_if(shown_, [this](std::size_t at) { return !holdsHit(chains_[at]); });
    fastClear(tree_);
    rest_ = nullptr;
    const RedrawSuspension suspension(tree_);
    TreeModel& model = tree_.model();
    TreeNode& root = model.add(model.root(), title_);
    model.setImage(root, TreeImage::Many);
    addRows(limited_ ? kExpandedAtOnce : shown_.size());
    tree_.setExpanded(root, true);
}

bool ChainsTree::holdsHit(const LinkChain& chain) const {
    return std::any_of(chain.ids.begin(), chain.ids.end(), [this](int id) {
        return static_cast<std::size_t>(id) < isHit_.size() && isHit_[static_cast<std::size_t>(id)];
    });
}

std::size_t ChainsTree::rowCount() {
    return root()->children().size() - (rest_ == nullptr ? 0 : 1);
}

/// Gives the tree at least so many chains, if there are, and a node for the rest.
void ChainsTree::addRows(std::size_t count) {
    const std::size_t end = std::min(count, shown_.size());
    if (rowCount() >= end)
        return;
    if (rest_ != nullptr)
        showFirst(*std::exchange(rest_, nullptr));
    while (rowCount() < end)
        showFirst(addExpandable());
    for (std::size_t row = 0; row < std::min(kExpandedAtOnce, end); ++row)
        addRest(*root()->children()[row]);
    if (end < shown_.size())
        addNodeForRest(shown_.size() - end);
}

TreeNode& ChainsTree::addExpandable() {
    TreeNode& node = tree_.model().add(*root());
    tree_.model().add(node, kPlaceholderText);
    return node;
}

void ChainsTree::addNodeForRest(std::size_t count) {
    rest_ = &addExpandable();
    tree_.model().setText(*rest_,
                          std::to_string(count) + " more" + (count == 1 ? " chain" : " chains"));
    tree_.model().setImage(*rest_, TreeImage::Many);
}

/// Shows the chain of the node's row, without the nodes below.
void ChainsTree::showFirst(TreeNode& first) {
    TreeModel& model = tree_.model();
    const LinkChain& chain = chainOf(first);
    // Successive chains often start at the same contact.
    const TreeNode* const above = first.row() > 0 ? root()->children()[first.row() - 1] : nullptr;
    const bool startsLikeAbove =
        above != nullptr && chainOf(*above).ids.front() == chain.ids.front();
    model.setText(first,
                  startsLikeAbove ? above->text() : describeContact(*database_, chain.ids.front()));
    model.setImage(first, TreeImage::Contact);
    model.setTag(first, chain.cost);
}

void ChainsTree::addRest(TreeNode& first) {
    if (isComplete(first))
        return;
    tree_.model().removeChildren(first);
    addStairsBelow(tree_, first, chainOf(first).ids, *database_, maxWeight_, StairKeys::None);
}

void ChainsTree::refresh() {
    const RedrawSuspension suspension(tree_);
    maxWeight_ = std::max(maxWeight_, database_->strongestWeight());
    TreeModel& model = tree_.model();
    for (TreeNode* const first : root()->children()) {
        if (first == rest_)
            continue;
        const std::vector<int>& ids = chainOf(*first).ids;
        if (isComplete(*first))
            showChain(model, *first, ids, *database_, maxWeight_);
        else if (std::string text = describeContact(*database_, ids.front()); text != first->text())
            model.setText(*first, std::move(text));
    }
}

void ChainsTree::showBest() {
    if (root() == nullptr)
        return;
    const std::vector<std::size_t> best = expandBest();
    if (!best.empty())
        showWhole(*root()->children()[best.front()]);
}

/// Returns the rows of the best chains.
std::vector<std::size_t> ChainsTree::expandBest() {
    const RedrawSuspension suspension(tree_);
    addRows(shown_.size());
    const std::vector<TreeNode*>& rows = root()->children();
    std::vector<int> costs;
    for (TreeNode* const first : rows) {
        if (isComplete(*first))
            setChainExpanded(tree_, *first, false);
        costs.push_back(chainOf(*first).cost);
    }
    tree_.setExpanded(*root(), true);
    std::vector<std::size_t> best = bestChains(costs);
    for (const std::size_t row : best) {
        addRest(*rows[row]);
        setChainExpanded(tree_, *rows[row], true);
    }
    return best;
}

/// Scrolls to the end of the chain first, so that as much of it as possible is in view.
void ChainsTree::showWhole(TreeNode& first) {
    TreeNode* last = &first;
    if (isComplete(first))
        while (!last->children().empty())
            last = last->children().front();
    tree_.select(last);
    tree_.select(&first);
}

const LinkChain& ChainsTree::chainOf(const TreeNode& first) const {
    return chains_[shown_[static_cast<std::size_t>(first.row())]];
}

std::string ChainsTree::detailOf(const TreeNode& node) const {
    if (node.isTopLevel())
        return std::to_string(shown_.size()) + (shown_.size() == 1 ? " chain" : " chains");
    if (!node.parent()->isTopLevel() || &node == rest_)
        return {};
    const LinkChain& chain = chainOf(node);
    const std::size_t relations = chain.ids.size() - 1;
    return "cost " + std::to_string(chain.cost) + ", " + std::to_string(relations) +
           (relations == 1 ? " relation" : " relations");
}

std::size_t ChainsTree::find(const std::string& query) {
    isHit_.assign(kMaxContactId + 1, false);
    for (const int id : contacts_.find(*database_, query))
        if (static_cast<std::size_t>(id) < isHit_.size())
            isHit_[static_cast<std::size_t>(id)] = true;
    limited_ = true;
    fillAgain();
    return shown_.size();
}

void ChainsTree::show(std::size_t hit) {
    if (hit >= rowCount()) {
        const RedrawSuspension suspension(tree_);
        addRows(hit + kExpandedAtOnce);
    }
    showWhole(*root()->children()[hit]);
}

void ChainsTree::noQuery() {
    if (std::exchange(limited_, false))
        fillAgain();
}

}  // namespace pelk
