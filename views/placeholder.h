#pragma once
// The one child that makes a node expandable before its real children are known. It is nobody's
// node, and the only kind without an image.

#include "platform/controls.h"

namespace pelk {

inline constexpr const char* kPlaceholderText = "Loading...";

inline bool isPlaceholder(const TreeNode& node) {
    return node.image() == TreeImage::None;
}

/// Whether the node was filled already. One that was filled with a single child looks as if it
/// was not, and is filled again.
inline bool isFilled(const TreeNode& node) {
    return node.children().size() > 1;
}

/// Empties a node that was closed, so that it is filled anew when it is opened again.
inline void replaceByPlaceholder(TreeView& tree, TreeNode& node) {
    tree.model().removeChildren(node);
    tree.model().add(node, kPlaceholderText);
}

}  // namespace pelk
