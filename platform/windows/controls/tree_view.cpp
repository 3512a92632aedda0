#include "platform/windows/controls/tree_view.h"

#include <algorithm>

#include "platform/guard.h"
#include "platform/windows/controls/flag_scope.h"

namespace pelk {

namespace {

constexpr DWORD kStyle = TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS |
                         TVS_DISABLEDRAGDROP | WS_TABSTOP;
constexpr LPARAM kDoubleBuffer = 4;

bool isBelow(const TreeNode* node, const TreeNode& ancestor) {
    while (node != nullptr && node->parent() != &ancestor)
        node = node->parent();
    return node != nullptr;
}

LPARAM asParameter(HTREEITEM item) {
    return reinterpret_cast<LPARAM>(item);
}

}  // namespace

Win32TreeView::Win32TreeView(const ControlPlace& place, Dialogs& dialogs, const Language& language)
    : Win32Control(place, {WC_TREEVIEWW, kStyle, WS_EX_CLIENTEDGE}, language),
      dialogs_(dialogs),
      items_(handle()) {
    SendMessageW(handle(), TVM_SETIMAGELIST, TVSIL_NORMAL,
                 reinterpret_cast<LPARAM>(look_.treeImages()));
    constexpr UINT kSetExtendedStyle = TV_FIRST + 44;
    SendMessageW(handle(), kSetExtendedStyle, static_cast<WPARAM>(kDoubleBuffer), kDoubleBuffer);
    SetWindowLongPtrW(handle(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    native_ = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
        handle(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Win32TreeView::procedure)));
    items_.onGone = [this](const TreeNode& node) { forget(node); };
    items_.onLoss = [this](TreeNode& node) { closeIfEmpty(node); };
    model().setListener(&items_);
}

Win32TreeView::~Win32TreeView() {
    model().setListener(nullptr);
}

void Win32TreeView::select(TreeNode* node) {
    const FlagScope silence(silent_);
    const HTREEITEM item = node == nullptr ? nullptr : items_.itemOf(*node);
    if (item != nullptr)
        for (TreeNode* above = node->parent(); above->parent() != nullptr; above = above->parent())
            expandSilently(*above);
    SendMessageW(handle(), TVM_SELECTITEM, TVGN_CARET, asParameter(item));
    if (item != nullptr)
        SendMessageW(handle(), TVM_ENSUREVISIBLE, 0, asParameter(item));
}

void Win32TreeView::repaint() {
    RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

LRESULT Win32TreeView::notified(NMHDR& header) {
    switch (header.code) {
        case TVN_GETDISPINFOW:
            items_.fillIn(reinterpret_cast<NMTVDISPINFOW&>(header).item);
            return 0;
        case NM_CUSTOMDRAW:
            return items_.paint(reinterpret_cast<NMTVCUSTOMDRAW&>(header));
        case TVN_DELETEITEMW:
            items_.itemGone(
                reinterpret_cast<TVITEMW&>(reinterpret_cast<NMTREEVIEWW&>(header).itemOld));
            return 0;
        case TVN_SELCHANGINGW:
            // A tree without a selection selects its first item when it gets the focus.
            return takingFocus_ ? TRUE : FALSE;
        case TVN_ITEMEXPANDINGW:
            return changesNothing(reinterpret_cast<NMTREEVIEWW&>(header)) ? TRUE : FALSE;
        case TVN_ITEMEXPANDEDW:
            noteAct(reinterpret_cast<NMTREEVIEWW&>(header));
            return 0;
        default:
            return 0;
    }
}

LRESULT CALLBACK Win32TreeView::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* const self = reinterpret_cast<Win32TreeView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    LRESULT result = 0;
    guarded(self->dialogs_, [&] { result = self->handleMessage(message, wparam, lparam); });
    return result;
}

LRESULT Win32TreeView::handleMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_SETFOCUS) {
        const FlagScope taking(takingFocus_);
        return callNative(message, wparam, lparam);
    }
    if (message != WM_KEYDOWN)
        return callNative(message, wparam, lparam);
    if (selectFirstByKey(wparam))
        return 0;
    // Nodes are filled when they are opened, so opening all that stands below one has no end.
    return callNative(message, wparam == VK_MULTIPLY ? VK_ADD : wparam, lparam);
}

LRESULT Win32TreeView::callNative(UINT message, WPARAM wparam, LPARAM lparam) {
    ++depth_;
    const LRESULT result = CallWindowProcW(native_, handle(), message, wparam, lparam);
    --depth_;
    if (depth_ == 0 && !acts_.empty())
        tellOfActs();
    return result;
}

/// The arrow keys start from the selected row; without one they go to the first.
bool Win32TreeView::selectFirstByKey(WPARAM key) {
    const bool moves = key >= VK_PRIOR && key <= VK_DOWN;  // pages, End, Home, arrows
    if (!moves || selected() != nullptr || model().root().shownCount() == 0)
        return false;
    select(model().root().children().front());
    return true;
}

/// The key that expands a node does so again when it is expanded.
bool Win32TreeView::changesNothing(const NMTREEVIEWW& event) const {
    const LRESULT state = SendMessageW(
        handle(), TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(event.itemNew.hItem), TVIS_EXPANDED);
    return (event.action & TVE_TOGGLE) == TVE_EXPAND && (state & TVIS_EXPANDED) != 0;
}

void Win32TreeView::noteAct(const NMTREEVIEWW& event) {
    if (!silent_)
        acts_.push_back({reinterpret_cast<TreeNode*>(event.itemNew.lParam),
                         (event.itemNew.state & TVIS_EXPANDED) != 0});
}

void Win32TreeView::tellOfActs() {
    while (!acts_.empty()) {
        const Act act = acts_.front();
        acts_.pop_front();
        act.expanded ? userExpanded(*act.node) : userCollapsed(*act.node);
    }
}

void Win32TreeView::userExpanded(TreeNode& node) {
    if (node.shownCount() == 0) {
        closeIfEmpty(node);
        return;
    }
    expanding_.push_back(&node);
    if (const auto handler = onExpand)
        guarded(dialogs_, [&] { handler(node); });
    const bool there = expanding_.back() != nullptr;
    expanding_.pop_back();
    if (!there)
        return;
    // The native tree has closed the node if it was without children for a moment.
    const FlagScope silence(silent_);
    node.shownCount() == 0 ? closeIfEmpty(node) : expandSilently(node);
}

void Win32TreeView::userCollapsed(TreeNode& node) {
    // The selection does not stay where it cannot be seen.
    if (isBelow(selected(), node))
        SendMessageW(handle(), TVM_SELECTITEM, TVGN_CARET, asParameter(items_.itemOf(node)));
    if (const auto handler = onCollapse)
        guarded(dialogs_, [&] { handler(node); });
}

/// Requires: `silent_`.
void Win32TreeView::expandSilently(const TreeNode& node) {
    SendMessageW(handle(), TVM_EXPAND, TVE_EXPAND, asParameter(items_.itemOf(node)));
}

void Win32TreeView::closeIfEmpty(const TreeNode& node) {
    TVITEMW item = {};
    item.mask = TVIF_STATE;
    item.hItem = items_.itemOf(node);
    item.stateMask = TVIS_EXPANDED | TVIS_EXPANDEDONCE;
    if (item.hItem == nullptr || node.shownCount() > 0 || isExpanding(node))
        return;
    SendMessageW(handle(), TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    InvalidateRect(handle(), nullptr, TRUE);  // the expander is not part of the item
}

bool Win32TreeView::isExpanding(const TreeNode& node) const {
    return std::find(expanding_.begin(), expanding_.end(), &node) != expanding_.end();
}

void Win32TreeView::forget(const TreeNode& node) {
    std::erase_if(acts_, [&node](const Act& act) { return act.node == &node; });
    std::replace(expanding_.begin(), expanding_.end(), &node,
                 static_cast<const TreeNode*>(nullptr));
}

}  // namespace pelk
