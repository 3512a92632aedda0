#pragma once
// What the user has expanded, selected and scrolled to in a tree, kept while the tree is filled
// again.

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls.h"

namespace pelk {

/// Recognizes nodes by their tag, or by their text if they have none. Requires: a node that is not
/// expanded has a placeholder, or no child at all.
class TreeState {
 public:
    explicit TreeState(TreeView& tree);

    /// Restores what is still there. `fill` gives a node its children.
    void restore(TreeView& tree, const std::function<void(TreeNode&)>& fill) const;

 private:
    using Step = std::pair<TreeTag, std::string>;
    /// From the top level down.
    using Path = std::vector<Step>;

    static Step stepTo(const TreeNode& node);
    static Path pathOf(const TreeNode* node);
    static TreeNode* find(TreeModel& model, const Path& path);
    void noteExpanded(const TreeNode& parent);

    /// Parents before their children.
    std::vector<Path> expanded_;
    /// Empty for none.
    Path selected_;
    Path firstVisible_;
};

}  // namespace pelk
