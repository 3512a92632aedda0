#pragma once
// The people of a picture as a tree: what the picture shows, for those who cannot see it, and its
// legend for all others.

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "db/database.h"
#include "map/arrangement.h"
#include "platform/controls.h"

namespace pelk {

class PeopleTree {
 public:
    /// Sets the handlers of the tree, which outlives this object as `database` does. The database
    /// is the form's, which may set it later.
    PeopleTree(TreeView& tree, const Database* const& database);
    PeopleTree(const PeopleTree&) = delete;
    PeopleTree& operator=(const PeopleTree&) = delete;

    /// Fills the tree with a node for each group, the largest first, in its colour and with its
    /// name and size: "intel.com (12)". Below it are its people, those with most e-mails first. The
    /// person in the middle of a circle comes before the groups. What is expanded and who is
    /// selected stays so.
    void fill(const Arrangement& arrangement);
    /// Selects a person by the id of the contact; nobody if it is not in the tree. Calls no
    /// handler.
    void select(int contactId);
    /// Returns the id of the selected person; 0 if it is nobody or a group.
    int selected();

    /// Called when the user selects a person, or a group, with the ids of its people.
    std::function<void(int contactId)> onSelect;
    std::function<void(const std::vector<int>& contactIds)> onSelectGroup;
    /// Called when the user double-clicks a person or presses Enter on it.
    std::function<void(int contactId)> onActivate;

 private:
    void addAll(const Arrangement& arrangement);
    std::vector<TreeNode*> addGroups(const Arrangement& arrangement);
    void addPerson(TreeNode& parent, const Contact& contact);
    void expandAgain();
    void report(const TreeNode& node) const;

    TreeView& tree_;
    TreeModel& model_;
    const Database* const& database_;
    /// The names of the expanded groups, which may have another number when they are found again.
    std::set<std::string> expanded_;
};

}  // namespace pelk
