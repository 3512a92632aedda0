#pragma once
// Shows a chain of contacts as a staircase of tree nodes: each contact is the only child of the one
// before it.

#include <cstdint>
#include <string>
#include <vector>

#include "db/database.h"
#include "platform/controls.h"

namespace pelk {

enum class StairKeys { None, Contacts };

/// Adds the chain below `parent`, expanded to its end, and returns its first node. The nodes look
/// as `showChain` describes. With `StairKeys::Contacts` each node gets its contact's key. Requires:
/// the chain is not empty.
TreeNode& addStaircase(TreeView& tree, TreeNode& parent, const std::vector<int>& chain,
                       const Database& database, std::int64_t strongest, StairKeys keys);

/// Adds the rest of a chain below its first node, and otherwise does as `addStaircase`.
void addStairsBelow(TreeView& tree, TreeNode& first, const std::vector<int>& chain,
                    const Database& database, std::int64_t strongest, StairKeys keys);

/// Returns the text of a contact's node: its description, or that it has been deleted.
std::string describeContact(const Database& database, int id);

/// Updates the texts, images and colours of a chain's nodes from the database, without expanding or
/// collapsing any. Each node but the first shows the strength of the relation to the node above,
/// relative to `strongest`. A deleted contact gets a text that says so; a node whose relation has
/// been removed looks like the first one.
void showChain(TreeModel& tree, TreeNode& first, const std::vector<int>& chain,
               const Database& database, std::int64_t strongest);

/// Expands or collapses a node and its chain of first children.
void setChainExpanded(TreeView& tree, TreeNode& node, bool expanded);

}  // namespace pelk
