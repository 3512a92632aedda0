#pragma once
// What a screen reader says of a tree's node.

#include <string>

#include "platform/tree_model.h"

namespace pelk {

/// Returns what an image shows, in words; empty for none.
inline std::string describeImage(TreeImage image) {
    constexpr const char* kWords[] = {
        "", "contact", "several contacts", "strong relation", "medium relation", "weak relation"};
    return kWords[static_cast<int>(image)];
}

/// Returns the node's text and, for a relation, its strength, which others see by colour and image.
inline std::string spokenText(const TreeNode& node) {
    return node.image() < TreeImage::One ? node.text()
                                         : node.text() + ", " + describeImage(node.image());
}

}  // namespace pelk
