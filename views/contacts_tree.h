#pragma once
// Contacts and their relations as nodes of a tree.

#include <cstdint>

#include "db/database.h"
#include "platform/controls.h"

namespace pelk {

/// Fills the tree with all contacts in alphabetical order, each with a placeholder to expand. A
/// node carries the contact's key and has its id as tag.
void fillContactsTree(TreeView& tree, const Database& database);

/// Adds the node of one contact behind the last child of `parent`: its description, its key and
/// its id as tag.
TreeNode& addContactNode(TreeModel& tree, TreeNode& parent, const Contact& contact);

/// Replaces what stands below a node by the contacts that `contactId` has relations with, in
/// alphabetical order, coloured by strength against a strongest relation of that weight. A child
/// has the related contact's id as tag. Throws `Error` at a relation that names neither end as the
/// contact; what was added before stays.
void fillRelatedContacts(TreeView& tree, TreeNode& node, const Database& database, int contactId,
                         std::int64_t strongest);

/// Gives a node the look of a relation of that weight.
void showStrength(TreeModel& tree, TreeNode& node, double weight, std::int64_t strongest,
                  const Thresholds& thresholds);

}  // namespace pelk
