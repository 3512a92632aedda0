#pragma once
// The items of the native tree, one for each node of the portable model that it has been told of.
// Texts, images and colours are not copied: the native tree asks for what it paints.

#include <windows.h>
// The line above comes first.
#include <commctrl.h>

#include <functional>
#include <unordered_map>

#include "platform/tree_model.h"

namespace pelk {

class TreeItems : public TreeListener {
 public:
    explicit TreeItems(HWND tree) : tree_(tree) {}

    /// Called while the node is still there, but its item is going.
    std::function<void(const TreeNode&)> onGone;
    /// Called for a node that has lost children.
    std::function<void(TreeNode&)> onLoss;

    /// The item of the node; null for the root and for a node that has none yet.
    HTREEITEM itemOf(const TreeNode& node) const;
    /// The node of the item; null for no item.
    TreeNode* nodeOf(HTREEITEM item) const;
    TreeNode* selected() const;

    bool isExpanded(const TreeNode& node) const;
    /// Opens or closes a node that has an item; while redraw is suspended, when it resumes.
    void setExpanded(const TreeNode& node, bool expanded);
    /// Opens all that the node stands under, at once.
    void expandAbove(const TreeNode& node);
    /// Selects the node instead of what is selected below it.
    void takeSelectionFromBelow(const TreeNode& node) const;
    /// Whether what the native tree says of opened and closed items is this object's doing.
    bool isExpanding() const { return expanding_; }

    /// What the native tree asks while it paints or measures.
    void fillIn(TVITEMW& item) const;
    LRESULT paint(NMTVCUSTOMDRAW& drawing) const;
    void itemGone(const TVITEMW& item);

    void beforeInsert(TreeNode& parent, int firstRow, int lastRow) override;
    void afterInsert() override;
    void beforeRemove(TreeNode& parent, int firstRow, int lastRow) override;
    void afterRemove() override;
    void beforeReorder(TreeNode&) override {}
    void afterReorder(TreeNode& parent) override;
    void beforeClear() override;
    void afterClear() override {}
    void changed(TreeNode& node) override;
    void forgotten(const TreeNode& node) override { wishes_.erase(&node); }
    void redrawSuspended() override;
    void redrawResumed() override;

 private:
    class RedrawHold;

    HTREEITEM itemOrRoot(const TreeNode& node) const;
    void insertRows(const TreeNode& parent, int firstRow, int lastRow);
    void expandNow(const TreeNode& node, bool expanded);
    bool isWishedOpen(const TreeNode& node) const;
    void fulfilWishes();
    const TreeNode* highestClosedAbove(const TreeNode& node) const;
    void rebuild();
    void deleteAll();
    void deselectIfIn(const TreeNode& parent, int firstRow, int lastRow) const;
    void holdRedraw();
    void releaseRedraw();

    HWND tree_;
    std::unordered_map<const TreeNode*, HTREEITEM> items_;
    /// What shall be open or closed when redraw resumes.
    std::unordered_map<const TreeNode*, bool> wishes_;
    TreeNode* changing_ = nullptr;
    int firstRow_ = 0;
    int lastRow_ = 0;
    int holds_ = 0;
    bool suspended_ = false;
    bool expanding_ = false;
    bool rebuilding_ = false;
};

}  // namespace pelk
