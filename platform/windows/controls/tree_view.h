#pragma once
// The tree control over the portable model.

#include <deque>

#include "platform/dialogs.h"
#include "platform/windows/controls/native_control.h"
#include "platform/windows/controls/tree_items.h"

namespace pelk {

/// A node that has lost its last child is closed, unless that happens while `onExpand` runs for
/// it: then its children are counted when the handler has returned.
///
/// Handlers run when the native tree is done with the message in which the user acted: until then
/// it would not bear that the item goes away.
class Win32TreeView : public Win32Control<TreeView> {
 public:
    /// Faults of the handlers go to `dialogs`.
    Win32TreeView(const ControlPlace& place, Dialogs& dialogs, const Language& language);
    ~Win32TreeView() override;

    void select(TreeNode* node) override;
    TreeNode* selected() override { return items_.selected(); }
    void repaint() override;

    LRESULT notified(NMHDR& header) override;

 private:
    /// What the user did to a node.
    struct Act {
        TreeNode* node;
        bool expanded;
    };

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT handleMessage(UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT callNative(UINT message, WPARAM wparam, LPARAM lparam);
    bool selectFirstByKey(WPARAM key);

    bool changesNothing(const NMTREEVIEWW& event) const;
    void noteAct(const NMTREEVIEWW& event);
    void tellOfActs();
    void userExpanded(TreeNode& node);
    void userCollapsed(TreeNode& node);
    void expandSilently(const TreeNode& node);
    void closeIfEmpty(const TreeNode& node);
    bool isExpanding(const TreeNode& node) const;
    void forget(const TreeNode& node);

    Dialogs& dialogs_;
    TreeItems items_;
    WNDPROC native_ = nullptr;
    /// How many messages the native tree is in the middle of.
    int depth_ = 0;
    /// Set while the tree is changed by code, which no handler hears of.
    bool silent_ = false;
    bool takingFocus_ = false;
    std::deque<Act> acts_;
    /// The nodes for which `onExpand` runs; null for one that has gone meanwhile.
    std::vector<const TreeNode*> expanding_;
};

}  // namespace pelk
