#pragma once
// The mail domains as a tree: the last labels of all addresses at the top, below each the labels
// to their left, and the addresses themselves as leaves.

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "db/database.h"
#include "platform/controls.h"
#include "platform/language.h"
#include "views/domains.h"

namespace pelk {

/// Fills a tree with domains. It keeps the addresses taken apart for as long as nobody edits the
/// database.
class DomainsTree {
 public:
    /// Both must outlive it.
    DomainsTree(TreeView& tree, const Language& language) : tree_(tree), language_(language) {}

    /// Fills the tree with the top level, in order of first appearance in the document; every
    /// label gets a placeholder to expand.
    void fill(const Database& database);
    /// Fills a label's node, unless it is filled, with what stands directly below it, in
    /// alphabetical order. The leaf of an address has the whole address as tag. Requires: the tree
    /// was filled from that database.
    void expand(TreeNode& node, const Database& database);

 private:
    void read(const Database& database);

    TreeView& tree_;
    const Language& language_;
    std::vector<MailAddress> addresses_;
    /// The database's when they were read.
    std::uint64_t revision_ = 0;
};

/// Whether the node is an address; every label has something below it.
inline bool isAddressLeaf(const TreeNode& node) {
    return std::holds_alternative<std::string>(node.tag());
}

/// The domain that a node stands for, b.a for b under a; for a leaf the whole address.
std::string domainOf(const TreeNode& node);

}  // namespace pelk
