#pragma once
// What the user has expanded, selected and scrolled to in a tree, kept while the tree is filled
// again.

#include <functional>
#include <string>
#include <vector>

#include "platform/controls.h"

namespace pelk {

/// Recognizes nodes by their key, else by their tag, else by their text. Requires: a node that is
/// not expanded has a placeholder, or no child at all.
class TreeState {
 public:
    explicit TreeState(TreeView& tree);

    /// Restores what is still there. `fill` gives a node its children.
    void restore(TreeView& tree, const std::function<void(TreeNode&)>& fill) const;

 private:
    struct Step {
        std::string key;
        TreeTag tag;
        /// Empty if the node has a key or a tag.
        std::string text;
    };
    /// From the top level down.
    using Path = std::vector<Step>;

    static Step stepTo(const TreeNode& node);
    static bool leadsTo(const Step& step, const TreeNode& node);
    static TreeNode* childAt(TreeModel& model, TreeNode& parent, const Step& step);
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
