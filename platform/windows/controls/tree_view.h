#pragma once
// The tree control over the portable model.

#include <deque>
#include <optional>
#include <vector>

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
    void setExpanded(TreeNode& node, bool expanded) override { items_.setExpanded(node, expanded); }
    void repaint() override;

    LRESULT notified(NMHDR& header) override;

 private:
    /// What the user did.
    struct Act {
        enum class Kind { Expand, Collapse, Select, RequestMenu, PressDelete };
        Kind kind;
        /// What it was done to; null for the last two.
        TreeNode* node = nullptr;
        /// Where the menu is to open.
        ScreenPoint where;
    };

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT handleMessage(UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT respond(UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT callNative(UINT message, WPARAM wparam, LPARAM lparam) const;
    LRESULT keyPressed(WPARAM key, LPARAM lparam);
    bool selectFirstByKey(WPARAM key);
    void rightPressed(POINT point);
    bool menuRequested(POINT where);
    std::optional<POINT> placeOfSelection() const;

    bool changesNothing(const NMTREEVIEWW& event) const;
    void noteExpansion(const NMTREEVIEWW& event);
    void noteSelection(const NMTREEVIEWW& event);
    void tellOfActs();
    void tellOf(const Act& act);
    void userExpanded(TreeNode& node);
    void userCollapsed(TreeNode& node);
    void closeIfEmpty(const TreeNode& node);
    bool isExpanding(const TreeNode& node) const;
    void forget(const TreeNode& node);

    Dialogs& dialogs_;
    TreeItems items_;
    WNDPROC native_ = nullptr;
    /// How many messages the native tree is in the middle of.
    int depth_ = 0;
    bool takingFocus_ = false;
    std::deque<Act> acts_;
    /// Set while handlers run: what the user does meanwhile is told when they have returned.
    bool telling_ = false;
    /// The nodes for which `onExpand` runs; null for one that has gone meanwhile.
    std::vector<const TreeNode*> expanding_;
};

}  // namespace pelk
