#pragma once
// The child that makes a node expandable before its real children are known. It is the only kind of
// node without an image.

#include "platform/controls.h"

namespace pelk {

inline constexpr const char* kPlaceholderText = "Loading...";

inline bool isPlaceholder(const TreeNode& node) {
    return node.image() == TreeImage::None;
}

/// Whether the node has its real children. A node with a single real child counts as unfilled and
/// is filled again.
inline bool isFilled(const TreeNode& node) {
    return node.children().size() > 1;
}

/// Empties a collapsed node, so that it is filled anew when it is expanded again.
inline void replaceByPlaceholder(TreeView& tree, TreeNode& node) {
    tree.model().removeChildren(node);
    tree.model().add(node, kPlaceholderText);
}

}  // namespace pelk
