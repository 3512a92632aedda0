#pragma once
// The items of the native tree, one for each node that it knows. Texts, images and colours are not
// copied: the native tree asks for what it paints.

#include <windows.h>
// Requires the include above.
#include <commctrl.h>

#include <functional>
#include <unordered_map>

#include "platform/tree_model.h"

namespace pelk {

class TreeItems : public TreeListener {
 public:
    explicit TreeItems(HWND tree) : tree_(tree) {}

    /// Called before the item of a node is removed. The node still exists.
    std::function<void(const TreeNode&)> onGone;
    /// Called for a node that is collapsed.
    std::function<void(const TreeNode&)> onClose;
    /// Called for a node that has lost children.
    std::function<void(TreeNode&)> onLoss;
    /// Returns the detail to paint beside a node.
    std::function<std::string(const TreeNode&)> detailOf;

    /// Returns the item of the node; null for the root and for a node that has none yet.
    HTREEITEM itemOf(const TreeNode& node) const;
    /// Returns the node of the item; null for no item.
    TreeNode* nodeOf(HTREEITEM item) const;
    TreeNode* selected() const;

    bool isExpanded(const TreeNode& node) const;
    /// Expands or collapses a node that has an item, or does so when redraw resumes.
    void setExpanded(const TreeNode& node, bool expanded);
    /// Expands all ancestors of the node at once.
    void expandAbove(const TreeNode& node);
    /// Scrolls the children of an expanded node into view, as far as the node itself stays in view.
    void scrollToChildren(const TreeNode& node) const;
    /// Moves a selection below the node to the node.
    void takeSelectionFromBelow(const TreeNode& node) const;
    /// Whether the native tree's notifications of expansion are caused by this object.
    bool isExpanding() const { return expanding_; }

    /// Answers the native tree while it paints or measures.
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
    void chooseColors(NMTVCUSTOMDRAW& drawing, const TreeNode& node) const;
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
    /// What to expand or collapse when redraw resumes.
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
