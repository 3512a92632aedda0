#pragma once
// Shows contacts and their relations as nodes of a tree.

#include <cstdint>
#include <string>

#include "db/database.h"
#include "platform/controls.h"
#include "views/relation_view.h"

namespace pelk {

/// Fills the tree with all contacts in alphabetical order, each with a placeholder to expand. The
/// nodes are those of `addContactNode`.
void fillContactsTree(TreeView& tree, const Database& database);
/// Fills the tree with the contacts that `view` shows, in its order.
void fillContactsTree(TreeView& tree, const Database& database, const RelationView& view);

/// Adds a contact as the last child of `parent`. The node gets the contact's description as text,
/// its key, and its id as tag.
TreeNode& addContactNode(TreeModel& tree, TreeNode& parent, const Contact& contact);

/// Replaces the children of a node with the contacts related to `contactId`, in alphabetical order,
/// each in the colour of its relation's strength relative to `strongest`. A child's tag is the
/// related contact's id. Throws `Error` when neither end of a relation is `contactId`; children
/// added before that remain.
void fillRelatedContacts(TreeView& tree, TreeNode& node, const Database& database, int contactId,
                         std::int64_t strongest);
/// Does the same with the relations that `view` shows, in its order.
void fillRelatedContacts(TreeView& tree, TreeNode& node, const Database& database, int contactId,
                         std::int64_t strongest, const RelationView& view);

/// Returns the detail beside a node that one of these functions has added; empty for placeholders.
std::string contactNodeDetail(const TreeNode& node, const Database& database);

/// Gives a node the image and colour for a relation of that weight.
void showStrength(TreeModel& tree, TreeNode& node, double weight, std::int64_t strongest,
                  const Thresholds& thresholds);

}  // namespace pelk
