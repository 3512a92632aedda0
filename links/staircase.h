#pragma once
// A chain of contacts as a staircase of nodes: each contact the only child of the one before.

#include <cstdint>
#include <vector>

#include "db/database.h"
#include "platform/controls.h"

namespace pelk {

enum class StairKeys { None, Contacts };

/// Adds the chain below `parent` and opens it to its end. Each node but the first has the look of
/// the relation to the one above, measured against a strongest relation of that weight. What was
/// deleted since the chain was found is said to be gone. With `StairKeys::Contacts` a node carries
/// its contact's key. Returns the first node.
TreeNode& addStaircase(TreeView& tree, TreeNode& parent, const std::vector<int>& chain,
                       const Database& database, std::int64_t strongest, StairKeys keys);

/// Opens or closes a node and every node below it, down its chain of first children.
void setChainExpanded(TreeView& tree, TreeNode& node, bool expanded);

}  // namespace pelk
