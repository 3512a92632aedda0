#pragma once
// A chain of contacts as a staircase of nodes: each contact the only child of the one before.

#include <cstdint>
#include <vector>

#include "db/database.h"
#include "platform/controls.h"

namespace pelk {

enum class StairKeys { None, Contacts };

/// Adds the chain below `parent` and opens it to its end; see `showChain` for the looks of its
/// nodes. With `StairKeys::Contacts` a node carries its contact's key. Returns the first node.
TreeNode& addStaircase(TreeView& tree, TreeNode& parent, const std::vector<int>& chain,
                       const Database& database, std::int64_t strongest, StairKeys keys);

/// Gives the nodes of a chain the texts and looks that the database has for them now; which of them
/// are open stays. Each node but the first has the look of the relation to the one above, measured
/// against a strongest relation of that weight. A contact that was deleted since the chain was
/// found is said to be gone; a node whose relation is gone looks like the first one.
void showChain(TreeModel& tree, TreeNode& first, const std::vector<int>& chain,
               const Database& database, std::int64_t strongest);

/// Opens or closes a node and every node below it, down its chain of first children.
void setChainExpanded(TreeView& tree, TreeNode& node, bool expanded);

}  // namespace pelk
