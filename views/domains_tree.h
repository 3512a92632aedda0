#pragma once
// The mail domains as a tree: the last labels of all addresses at the top, below each the labels
// to their left, and the addresses themselves as leaves.

#include <string>

#include "db/database.h"
#include "platform/controls.h"
#include "platform/language.h"

namespace pelk {

/// Fills the tree with the top level, in order of first appearance in the document; every label
/// gets a placeholder to expand.
void fillDomainsTree(TreeView& tree, const Database& database, const Language& language);

/// Fills a label's node, unless it is filled, with what stands directly below it, in alphabetical
/// order. The leaf of an address has the whole address as tag.
void expandDomain(TreeView& tree, TreeNode& node, const Database& database,
                  const Language& language);

inline bool isAddressLeaf(const TreeNode& node) {
    return node.children().empty();
}

/// The domain that a node stands for, b.a for b under a; for a leaf the address, x@b.a. The local
/// part is the leaf's text up to its first blank.
std::string domainOf(const TreeNode& node);

}  // namespace pelk
