#pragma once
// Several selected items in the native tree, which by itself selects only one: the caret item.
//
// Invariants: the other selected items have the state TVIS_SELECTED, so that the tree paints them
// and screen readers know them; if there are any, there is a caret item, which is not one of them.

#include <windows.h>

#include <unordered_set>
#include <vector>

#include "platform/windows/controls/tree_items.h"

namespace pelk {

class TreeSelection {
 public:
    TreeSelection(HWND tree, const TreeItems& items) : tree_(tree), items_(items) {}

    /// Without this call, no other items are ever selected.
    void allowSeveral() { several_ = true; }

    /// Returns all selected nodes in the order of their rows.
    std::vector<TreeNode*> nodes() const;
    /// Makes the node the caret item. If it is selected, the others stay selected.
    void makeCurrent(TreeNode& node);

    /// Told of a press of the left button with these MK_ keys, before the native tree. If the press
    /// toggles an item or extends the selection, does that and returns the new current node, which
    /// is null when nothing is selected any more. If not, sets `handled` to false.
    TreeNode* press(POINT point, WPARAM keys, bool& handled);
    /// The node from which Shift extends the selection.
    TreeNode* anchor() const { return anchor_; }
    /// Selects the rows from `start` to the caret item. Does nothing without one of them.
    void extendFrom(TreeNode* start);
    /// Selects only the caret item.
    void dropOthers();
    /// Told that the caret item is another one.
    void caretMoved();
    /// Told that a node is collapsed: nothing below it stays selected.
    void closed(const TreeNode& node);
    /// Told that a node is about to be removed.
    void forget(const TreeNode& node);

 private:
    using Nodes = std::vector<TreeNode*>;

    TreeNode* nodeAt(POINT point) const;
    void toggle(TreeNode& node);
    Nodes rowsBetween(TreeNode& one, TreeNode& other) const;
    void select(const Nodes& nodes, TreeNode* caret);
    void moveCaret(const TreeNode* node);
    void mark(const TreeNode& node, bool selected) const;

    HWND tree_;
    const TreeItems& items_;
    bool several_ = false;
    /// Whether this object moves the caret.
    bool moving_ = false;
    std::unordered_set<TreeNode*> others_;
    TreeNode* anchor_ = nullptr;
};

}  // namespace pelk
