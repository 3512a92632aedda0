#include "platform/windows/controls/tree_view.h"

#include <windowsx.h>

#include <algorithm>
#include <cstring>

#include "platform/guard.h"
#include "platform/windows/controls/flag_scope.h"
#include "platform/windows/wide_text.h"

namespace pelk {

namespace {

constexpr DWORD kStyle = TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS |
                         TVS_DISABLEDRAGDROP | WS_TABSTOP;
constexpr LPARAM kDoubleBuffer = 4;

LPARAM asParameter(HTREEITEM item) {
    return reinterpret_cast<LPARAM>(item);
}

bool movesSelection(WPARAM key) {
    return key >= VK_PRIOR && key <= VK_DOWN;  // pages, End, Home, arrows
}

}  // namespace

Win32TreeView::Win32TreeView(const ControlPlace& place, Dialogs& dialogs, const Language& language)
    : Win32Control(place, {WC_TREEVIEWW, kStyle, WS_EX_CLIENTEDGE}, language),
      dialogs_(dialogs),
      items_(handle()),
      selection_(handle(), items_),
      detailTip_(handle()) {
    SendMessageW(handle(), TVM_SETIMAGELIST, TVSIL_NORMAL,
                 reinterpret_cast<LPARAM>(look_.treeImages()));
    constexpr UINT kSetExtendedStyle = TV_FIRST + 44;
    SendMessageW(handle(), kSetExtendedStyle, static_cast<WPARAM>(kDoubleBuffer), kDoubleBuffer);
    SetWindowLongPtrW(handle(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    native_ = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
        handle(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Win32TreeView::procedure)));
    items_.onGone = [this](const TreeNode& node) { forget(node); };
    items_.onClose = [this](const TreeNode& node) { selection_.closed(node); };
    items_.detailOf = [this](const TreeNode& node) { return detail(node); };
    items_.onLoss = [this](TreeNode& node) { closeIfEmpty(node); };
    model().setListener(&items_);
}

Win32TreeView::~Win32TreeView() {
    model().setListener(nullptr);
}

void Win32TreeView::select(TreeNode* node) {
    const HTREEITEM item = node == nullptr ? nullptr : items_.itemOf(*node);
    if (item != nullptr)
        items_.expandAbove(*node);
    SendMessageW(handle(), TVM_SELECTITEM, TVGN_CARET, asParameter(item));
    if (item != nullptr)
        SendMessageW(handle(), TVM_ENSUREVISIBLE, 0, asParameter(item));
}

TreeNode* Win32TreeView::firstVisible() {
    const LRESULT item = SendMessageW(handle(), TVM_GETNEXTITEM, TVGN_FIRSTVISIBLE, 0);
    return item == 0 ? nullptr : items_.nodeOf(reinterpret_cast<HTREEITEM>(item));
}

void Win32TreeView::scrollToTop(TreeNode& node) {
    SendMessageW(handle(), TVM_SELECTITEM, TVGN_FIRSTVISIBLE, asParameter(items_.itemOf(node)));
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
            // A tree without a selection would select its first item when it gets the focus.
            return takingFocus_ ? TRUE : FALSE;
        case TVN_ITEMEXPANDINGW:
            return changesNothing(reinterpret_cast<NMTREEVIEWW&>(header)) ? TRUE : FALSE;
        case TVN_ITEMEXPANDEDW:
            noteExpansion(reinterpret_cast<NMTREEVIEWW&>(header));
            return 0;
        case TVN_SELCHANGEDW:
            noteSelection(reinterpret_cast<NMTREEVIEWW&>(header));
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
    ++depth_;
    const LRESULT result = respond(message, wparam, lparam);
    --depth_;
    if (depth_ == 0 && !telling_)
        tellOfActs();
    return result;
}

LRESULT Win32TreeView::respond(UINT message, WPARAM wparam, LPARAM lparam) {
    const POINT point = {GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
    switch (message) {
        case WM_SETFOCUS: {
            const FlagScope taking(takingFocus_);
            return callNative(message, wparam, lparam);
        }
        case WM_KEYDOWN:
            return keyPressed(wparam, lparam);
        case WM_CHAR:  // the native tree would beep
            return wparam == VK_RETURN ? 0 : callNative(message, wparam, lparam);
        // Without this, the window would take Enter for its default button.
        case WM_GETDLGCODE:
            return callNative(message, wparam, lparam) |
                   (wparam == VK_RETURN && takesEnter() ? DLGC_WANTMESSAGE : 0);
        case WM_SIZE:
            InvalidateRect(handle(), nullptr, TRUE);  // moves the details
            return callNative(message, wparam, lparam);
        case WM_MOUSEMOVE:
            showTipAt(point);
            return callNative(message, wparam, lparam);
        case WM_LBUTTONDOWN:
            return leftPressed(point, wparam) ? 0 : callNative(message, wparam, lparam);
        case WM_LBUTTONDBLCLK:
            return leftPressed(point, wparam) ? 0 : doubleClicked(point, wparam, lparam);
        case WM_SYSKEYDOWN:
            if (wparam != VK_F10)
                return callNative(message, wparam, lparam);
            menuRequested({-1, -1});
            return 0;
        // The native tree would wait for the button's release in a loop of its own.
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
            rightPressed(point);
            return 0;
        case WM_RBUTTONUP:  // becomes WM_CONTEXTMENU
            return DefWindowProcW(handle(), message, wparam, lparam);
        case WM_CONTEXTMENU:
            return menuRequested(point) ? 0 : callNative(message, wparam, lparam);
        default:
            return callNative(message, wparam, lparam);
    }
}

LRESULT Win32TreeView::callNative(UINT message, WPARAM wparam, LPARAM lparam) const {
    return CallWindowProcW(native_, handle(), message, wparam, lparam);
}

LRESULT Win32TreeView::keyPressed(WPARAM key, LPARAM lparam) {
    if (key == VK_DELETE)
        acts_.push_back({Act::Kind::PressDelete, nullptr, {}});
    const bool enters = key == VK_RETURN && takesEnter();
    if (enters)
        acts_.push_back({Act::Kind::Activate, items_.selected(), {}});
    if (key == VK_DELETE || enters || selectFirstByKey(key))
        return 0;
    if (movesSelection(key))
        return moveByKey(key, lparam);
    // Nodes are filled when they are expanded, so expanding a whole subtree would never end.
    return callNative(WM_KEYDOWN, key == VK_MULTIPLY ? VK_ADD : key, lparam);
}

/// With Ctrl, the native tree scrolls instead.
LRESULT Win32TreeView::moveByKey(WPARAM key, LPARAM lparam) {
    TreeNode* const start = selection_.anchor();
    const LRESULT result = callNative(WM_KEYDOWN, key, lparam);
    if (GetKeyState(VK_SHIFT) < 0)
        selection_.extendFrom(start);
    else if (GetKeyState(VK_CONTROL) >= 0)
        selection_.dropOthers();
    return result;
}

/// Returns false for a press that the native tree handles.
bool Win32TreeView::leftPressed(POINT point, WPARAM keys) {
    bool handled = false;
    if (TreeNode* const node = selection_.press(point, keys, handled))
        acts_.push_back({Act::Kind::Select, node, {}});
    if (!handled)
        selectBeside(point);
    return handled;
}

/// The arrow keys start at the selected row; without one they go to the first.
bool Win32TreeView::selectFirstByKey(WPARAM key) {
    if (!movesSelection(key) || selected() != nullptr || model().root().shownCount() == 0)
        return false;
    TreeNode* const first = model().root().children().front();
    select(first);
    acts_.push_back({Act::Kind::Select, first, {}});
    return true;
}

/// Returns the node in whose row the point is, if it is in one of the parts; else null.
TreeNode* Win32TreeView::nodeAt(POINT point, UINT parts) const {
    TVHITTESTINFO hit = {};
    hit.pt = point;
    SendMessageW(handle(), TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    return (hit.flags & parts) != 0 ? items_.nodeOf(hit.hItem) : nullptr;
}

void Win32TreeView::showTipAt(POINT point) {
    const TreeNode* const node = nodeAt(point, TVHT_ONITEMRIGHT);
    detailTip_.pointAt(node == nullptr ? nullptr : items_.itemOf(*node),
                       node == nullptr ? L"" : toWide(detail(*node)));
}

void Win32TreeView::selectByMouse(TreeNode* node) {
    if (node == nullptr || node == selected())
        return;
    selection_.makeCurrent(*node);
    acts_.push_back({Act::Kind::Select, node, {}});
}

/// The native tree ignores a click on the detail.
void Win32TreeView::selectBeside(POINT point) {
    selectByMouse(nodeAt(point, TVHT_ONITEMRIGHT));
}

/// The native tree expands a node that was double-clicked on its text.
LRESULT Win32TreeView::doubleClicked(POINT point, WPARAM wparam, LPARAM lparam) {
    TreeNode* const node = nodeAt(point, TVHT_ONITEM | TVHT_ONITEMRIGHT);
    const LRESULT result = callNative(WM_LBUTTONDBLCLK, wparam, lparam);
    if (node != nullptr)
        acts_.push_back({Act::Kind::Activate, node, {}});
    return result;
}

/// Selects the row at that point of the tree.
void Win32TreeView::rightPressed(POINT point) {
    constexpr UINT kAnywhere = ~UINT{0};
    SetFocus(handle());
    selectByMouse(nodeAt(point, kAnywhere));
}

/// Returns false for the menu of a scroll bar.
bool Win32TreeView::menuRequested(POINT where) {
    const bool byKey = where.x == -1 && where.y == -1;
    if (byKey) {
        const std::optional<POINT> place = placeOfSelection();
        if (!place)
            return true;
        where = *place;
    }
    POINT inside = where;
    RECT inner = {};
    ScreenToClient(handle(), &inside);
    GetClientRect(handle(), &inner);
    if (!byKey && !PtInRect(&inner, inside))
        return false;
    acts_.push_back(
        {Act::Kind::RequestMenu, nullptr, {static_cast<int>(where.x), static_cast<int>(where.y)}});
    return true;
}

/// Returns the lower left corner of the selected row's text, on the screen.
std::optional<POINT> Win32TreeView::placeOfSelection() const {
    const TreeNode* const node = items_.selected();
    if (node == nullptr)
        return std::nullopt;
    const HTREEITEM item = items_.itemOf(*node);
    SendMessageW(handle(), TVM_ENSUREVISIBLE, 0, asParameter(item));
    RECT row = {};
    std::memcpy(&row, &item, sizeof item);
    SendMessageW(handle(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&row));
    POINT corner = {row.left, row.bottom};
    ClientToScreen(handle(), &corner);
    return corner;
}

/// The key that expands a node is reported even if the node is expanded.
bool Win32TreeView::changesNothing(const NMTREEVIEWW& event) const {
    const LRESULT state = SendMessageW(
        handle(), TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(event.itemNew.hItem), TVIS_EXPANDED);
    return (event.action & TVE_TOGGLE) == TVE_EXPAND && (state & TVIS_EXPANDED) != 0;
}

void Win32TreeView::noteExpansion(const NMTREEVIEWW& event) {
    const bool expanded = (event.itemNew.state & TVIS_EXPANDED) != 0;
    if (!items_.isExpanding())
        acts_.push_back({expanded ? Act::Kind::Expand : Act::Kind::Collapse,
                         reinterpret_cast<TreeNode*>(event.itemNew.lParam),
                         {}});
}

void Win32TreeView::noteSelection(const NMTREEVIEWW& event) {
    selection_.caretMoved();
    const bool byUser = event.action == TVC_BYMOUSE || event.action == TVC_BYKEYBOARD;
    if (byUser && event.itemNew.hItem != nullptr)
        acts_.push_back({Act::Kind::Select, reinterpret_cast<TreeNode*>(event.itemNew.lParam), {}});
}

void Win32TreeView::tellOfActs() {
    const FlagScope telling(telling_);
    while (!acts_.empty()) {
        const Act act = acts_.front();
        acts_.pop_front();
        tellOf(act);
    }
}

void Win32TreeView::tellOf(const Act& act) {
    switch (act.kind) {
        case Act::Kind::Expand:
            userExpanded(*act.node);
            return;
        case Act::Kind::Collapse:
            userCollapsed(*act.node);
            return;
        case Act::Kind::Select:
            if (const auto handler = onSelect)
                guarded(dialogs_, [&] { handler(*act.node); });
            return;
        case Act::Kind::Activate:
            if (const auto handler = onActivate)
                guarded(dialogs_, [&] { handler(*act.node); });
            return;
        case Act::Kind::RequestMenu:
            if (const auto handler = onMenuRequest)
                guarded(dialogs_, [&] { handler(act.where); });
            return;
        case Act::Kind::PressDelete:
            if (const auto handler = onDeleteKey)
                guarded(dialogs_, handler);
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
    // The native tree collapses a node that had no children for a moment.
    node.shownCount() == 0 ? closeIfEmpty(node) : items_.setExpanded(node, true);
    items_.scrollToChildren(node);
}

void Win32TreeView::userCollapsed(TreeNode& node) {
    // Moves the selection out of a collapsed node, where it would be invisible.
    items_.takeSelectionFromBelow(node);
    if (const auto handler = onCollapse)
        guarded(dialogs_, [&] { handler(node); });
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
    selection_.forget(node);
    std::erase_if(acts_, [&node](const Act& act) { return act.node == &node; });
    std::replace(expanding_.begin(), expanding_.end(), &node,
                 static_cast<const TreeNode*>(nullptr));
}

}  // namespace pelk
