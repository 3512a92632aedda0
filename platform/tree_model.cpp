#include "platform/tree_model.h"

#include <algorithm>
#include <utility>

namespace pelk {

TreeModel::TreeModel(const Language& language) : language_(language) {}

TreeNode& TreeModel::add(TreeNode& parent, std::string text) {
    TreeNode& node = nodes_.emplace_back();
    node.self_ = std::prev(nodes_.end());
    node.text_ = std::move(text);
    node.parent_ = &parent;
    node.row_ = static_cast<int>(parent.children_.size());
    parent.children_.push_back(&node);

    if (!isShown(parent))
        parent.shownCount_ = node.row_ + 1;
    else if (!suspended_)
        announce(parent);
    else if (parent.shownCount_ == node.row_)
        unannounced_.push_back(&parent);
    return node;
}

void TreeModel::remove(TreeNode& node) {
    removeRows(*node.parent_, static_cast<std::size_t>(node.row_), 1);
}

void TreeModel::removeChildren(TreeNode& node) {
    removeRows(node, 0, node.children_.size());
}

void TreeModel::clear() {
    if (listener_ != nullptr)
        listener_->beforeClear();
    unannounced_.clear();
    byKey_.clear();
    nodes_.clear();
    root_.children_.clear();
    root_.shownCount_ = 0;
    if (listener_ != nullptr)
        listener_->afterClear();
}

void TreeModel::setText(TreeNode& node, std::string text) {
    node.text_ = std::move(text);
    if (listener_ != nullptr && isShown(node))
        listener_->changed(node);
}

void TreeModel::setImage(TreeNode& node, TreeImage image) {
    node.image_ = image;
    if (listener_ != nullptr && isShown(node))
        listener_->changed(node);
}

void TreeModel::setColor(TreeNode& node, Color color) {
    paint(node, color);
}

void TreeModel::clearColor(TreeNode& node) {
    paint(node, std::nullopt);
}

void TreeModel::paint(TreeNode& node, const std::optional<Color>& color) {
    node.color_ = color;
    if (listener_ != nullptr && isShown(node))
        listener_->changed(node);
}

bool TreeModel::setKey(TreeNode& node, std::string key) {
    if (const TreeNode* owner = find(key); owner != nullptr)
        return owner == &node;
    if (!node.key_.empty())
        byKey_.erase(node.key_);
    node.key_ = std::move(key);
    if (!node.key_.empty())
        byKey_.emplace(node.key_, &node);
    return true;
}

void TreeModel::sortChildren(TreeNode& node) {
    reorder(node, alphabetical(node.children_));
}

void TreeModel::sortChildren(TreeNode& node,
                             const std::function<std::int64_t(const TreeNode&)>& rankOf) {
    std::vector<std::pair<std::int64_t, TreeNode*>> ranked;
    ranked.reserve(node.children_.size());
    for (TreeNode* const child : alphabetical(node.children_))
        ranked.emplace_back(rankOf(*child), child);
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto& one, const auto& other) { return one.first > other.first; });
    std::vector<TreeNode*> sorted;
    sorted.reserve(ranked.size());
    for (const auto& [rank, child] : ranked)
        sorted.push_back(child);
    reorder(node, std::move(sorted));
}

std::vector<TreeNode*> TreeModel::alphabetical(const std::vector<TreeNode*>& nodes) const {
    std::vector<std::string_view> texts;
    texts.reserve(nodes.size());
    for (const TreeNode* node : nodes)
        texts.emplace_back(node->text_);
    const std::vector<std::size_t> order = language_.alphabeticalOrder(texts);
    std::vector<TreeNode*> sorted;
    sorted.reserve(order.size());
    for (const std::size_t position : order)
        sorted.push_back(nodes[position]);
    return sorted;
}

void TreeModel::reorder(TreeNode& node, std::vector<TreeNode*> sorted) {
    const bool shown = isShown(node) && node.shownCount_ > 0;
    if (shown)
        announce(node);
    const bool heard = shown && listener_ != nullptr;
    if (heard)
        listener_->beforeReorder(node);
    node.children_ = std::move(sorted);
    for (std::size_t row = 0; row < node.children_.size(); ++row)
        node.children_[row]->row_ = static_cast<int>(row);
    if (heard)
        listener_->afterReorder(node);
}

TreeNode* TreeModel::find(std::string_view key) const {
    const auto found = byKey_.find(key);
    return found == byKey_.end() ? nullptr : found->second;
}

TreeNode* TreeModel::firstByIndex() {
    return nodes_.empty() ? nullptr : &nodes_.front();
}

TreeNode* TreeModel::nextByIndex(const TreeNode& node) {
    const auto next = std::next(node.self_);
    return next == nodes_.end() ? nullptr : &*next;
}

void TreeModel::suspendRedraw() {
    suspended_ = true;
    if (listener_ != nullptr)
        listener_->redrawSuspended();
}

void TreeModel::resumeRedraw() {
    suspended_ = false;
    for (TreeNode* parent : std::exchange(unannounced_, {}))
        announce(*parent);
    if (listener_ != nullptr)
        listener_->redrawResumed();
}

/// Whether the native tree knows the node: it and all its ancestors are among the rows shown.
bool TreeModel::isShown(const TreeNode& node) const {
    for (const TreeNode* at = &node; at->parent_ != nullptr; at = at->parent_)
        if (at->row_ >= at->parent_->shownCount_)
            return false;
    return true;
}

void TreeModel::announce(TreeNode& parent) {
    const int count = static_cast<int>(parent.children_.size());
    if (parent.shownCount_ == count)
        return;
    if (listener_ != nullptr)
        listener_->beforeInsert(parent, parent.shownCount_, count - 1);
    parent.shownCount_ = count;
    if (listener_ != nullptr)
        listener_->afterInsert();
}

/// Removes the node and its descendants from the index, the keys and the pending announcements.
void TreeModel::forget(TreeNode& node) {
    for (TreeNode* child : node.children_)
        forget(*child);
    if (!node.key_.empty())
        byKey_.erase(node.key_);
    if (!unannounced_.empty())
        std::erase(unannounced_, &node);
    if (listener_ != nullptr)
        listener_->forgotten(node);
    nodes_.erase(node.self_);
}

void TreeModel::removeRows(TreeNode& parent, std::size_t first, std::size_t count) {
    const std::size_t shown = static_cast<std::size_t>(parent.shownCount_);
    const std::size_t shownRemoved = first < shown ? std::min(count, shown - first) : 0;
    const bool heard = listener_ != nullptr && shownRemoved > 0 && isShown(parent);
    const int firstRow = static_cast<int>(first);
    if (heard)
        listener_->beforeRemove(parent, firstRow, firstRow + static_cast<int>(shownRemoved) - 1);

    const auto begin = parent.children_.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = begin + static_cast<std::ptrdiff_t>(count);
    for (auto child = begin; child != end; ++child)
        forget(**child);
    parent.children_.erase(begin, end);
    for (std::size_t row = first; row < parent.children_.size(); ++row)
        parent.children_[row]->row_ = static_cast<int>(row);
    parent.shownCount_ -= static_cast<int>(shownRemoved);

    if (heard)
        listener_->afterRemove();
}

}  // namespace pelk
