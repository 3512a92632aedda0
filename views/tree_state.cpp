#include "views/tree_state.h"

#include <algorithm>

#include "views/fast_tree.h"
#include "views/placeholder.h"

namespace pelk {

TreeState::TreeState(TreeView& tree)
    : selected_(pathOf(tree.selected())), firstVisible_(pathOf(tree.firstVisible())) {
    noteExpanded(tree.model().root());
}

void TreeState::noteExpanded(const TreeNode& parent) {
    for (const TreeNode* const node : parent.children()) {
        if (node->children().empty() || isPlaceholder(*node->children().front()))
            continue;
        expanded_.push_back(pathOf(node));
        noteExpanded(*node);
    }
}

TreeState::Step TreeState::stepTo(const TreeNode& node) {
    const bool hasTag = !std::holds_alternative<std::monostate>(node.tag());
    return {node.tag(), hasTag ? std::string() : node.text()};
}

TreeState::Path TreeState::pathOf(const TreeNode* node) {
    Path path;
    for (; node != nullptr && node->parent() != nullptr; node = node->parent())
        path.push_back(stepTo(*node));
    std::reverse(path.begin(), path.end());
    return path;
}

/// Returns null for an empty path and for one that is gone.
TreeNode* TreeState::find(TreeModel& model, const Path& path) {
    TreeNode* found = nullptr;
    for (const Step& step : path) {
        const auto& nodes = (found == nullptr ? model.root() : *found).children();
        const auto next = std::find_if(nodes.begin(), nodes.end(), [&step](const TreeNode* node) {
            return stepTo(*node) == step;
        });
        if (next == nodes.end())
            return nullptr;
        found = *next;
    }
    return found;
}

void TreeState::restore(TreeView& tree, const std::function<void(TreeNode&)>& fill) const {
    for (const Path& path : expanded_) {
        TreeNode* const node = find(tree.model(), path);
        if (node == nullptr || node->children().empty())
            continue;
        fill(*node);
        tree.setExpanded(*node, true);
    }
    if (TreeNode* const selected = find(tree.model(), selected_))
        tree.select(selected);
    if (TreeNode* const top = find(tree.model(), firstVisible_))
        tree.scrollToTop(*top);
}

}  // namespace pelk
