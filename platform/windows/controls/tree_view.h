#pragma once
// The tree control for the portable model.

#include <deque>
#include <optional>
#include <vector>

#include "platform/dialogs.h"
#include "platform/windows/controls/detail_tip.h"
#include "platform/windows/controls/native_control.h"
#include "platform/windows/controls/tree_items.h"
#include "platform/windows/controls/tree_selection.h"

namespace pelk {

/// A node that loses its last child is collapsed. If that happens while its `onExpand` runs, the
/// children are counted when the handler returns.
///
/// Handlers run after the native tree has finished with the message of the user's act, because it
/// cannot bear losing the item before.
class Win32TreeView : public Win32Control<TreeView> {
 public:
    /// `dialogs` shows the handlers' exceptions.
    Win32TreeView(const ControlPlace& place, Dialogs& dialogs, const Language& language);
    ~Win32TreeView() override;

    void select(TreeNode* node) override;
    TreeNode* selected() override { return items_.selected(); }
    void allowMultipleSelection() override { selection_.allowSeveral(); }
    std::vector<TreeNode*> selectedNodes() override { return selection_.nodes(); }
    void setExpanded(TreeNode& node, bool expanded) override { items_.setExpanded(node, expanded); }
    TreeNode* firstVisible() override;
    void scrollToTop(TreeNode& node) override;
    void repaint() override;

    LRESULT notified(NMHDR& header) override;

 private:
    /// An act of the user.
    struct Act {
        enum class Kind { Expand, Collapse, Select, Activate, RequestMenu, PressDelete };
        Kind kind;
        /// The node concerned; null for the last two.
        TreeNode* node = nullptr;
        /// Where to open the menu.
        ScreenPoint where;
    };

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT handleMessage(UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT respond(UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT callNative(UINT message, WPARAM wparam, LPARAM lparam) const;
    LRESULT keyPressed(WPARAM key, LPARAM lparam);
    LRESULT moveByKey(WPARAM key, LPARAM lparam);
    bool leftPressed(POINT point, WPARAM keys);
    bool selectFirstByKey(WPARAM key);
    TreeNode* nodeAt(POINT point, UINT parts) const;
    void showTipAt(POINT point);
    void selectByMouse(TreeNode* node);
    void selectBeside(POINT point);
    LRESULT doubleClicked(POINT point, WPARAM wparam, LPARAM lparam);
    bool takesEnter() const { return onActivate && items_.selected() != nullptr; }
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
    TreeSelection selection_;
    DetailTip detailTip_;
    WNDPROC native_ = nullptr;
    /// The number of nested messages that the native tree is handling.
    int depth_ = 0;
    bool takingFocus_ = false;
    std::deque<Act> acts_;
    /// Set while handlers run; acts during that time are reported when they have returned.
    bool telling_ = false;
    /// The nodes whose `onExpand` is running; null for one that was removed meanwhile.
    std::vector<const TreeNode*> expanding_;
};

}  // namespace pelk
