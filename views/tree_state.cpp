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
    const bool hasName = !node.key().empty() || !std::holds_alternative<std::monostate>(node.tag());
    return {node.key(), node.tag(), hasName ? std::string() : node.text()};
}

bool TreeState::leadsTo(const Step& step, const TreeNode& node) {
    return node.tag() == step.tag && (step.text.empty() || node.text() == step.text);
}

/// Nodes of the top level have keys, and there may be tens of thousands of them.
TreeNode* TreeState::childAt(TreeModel& model, TreeNode& parent, const Step& step) {
    if (!step.key.empty()) {
        TreeNode* const found = model.find(step.key);
        return found != nullptr && found->parent() == &parent ? found : nullptr;
    }
    const auto& nodes = parent.children();
    const auto found = std::find_if(nodes.begin(), nodes.end(),
                                    [&step](const TreeNode* node) { return leadsTo(step, *node); });
    return found == nodes.end() ? nullptr : *found;
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
        found = childAt(model, found == nullptr ? model.root() : *found, step);
        if (found == nullptr)
            return nullptr;
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
