#include "platform/windows/controls/tree_selection.h"

#include <algorithm>

#include "platform/tree_order.h"
#include "platform/windows/controls/flag_scope.h"

namespace pelk {

std::vector<TreeNode*> TreeSelection::nodes() const {
    Nodes nodes(others_.begin(), others_.end());
    if (TreeNode* const caret = items_.selected())
        nodes.push_back(caret);
    sortByRow(nodes);
    return nodes;
}

void TreeSelection::makeCurrent(TreeNode& node) {
    if (others_.contains(&node))
        select(nodes(), &node);
    else
        SendMessageW(tree_, TVM_SELECTITEM, TVGN_CARET,
                     reinterpret_cast<LPARAM>(items_.itemOf(node)));
}

TreeNode* TreeSelection::press(POINT point, WPARAM keys, bool& handled) {
    TreeNode* const node = several_ ? nodeAt(point) : nullptr;
    handled = node != nullptr && (keys & (MK_CONTROL | MK_SHIFT)) != 0;
    if (node == nullptr)
        return nullptr;
    if (!handled) {
        // If the node is the caret item, the native tree changes nothing.
        dropOthers();
        anchor_ = node;
        return nullptr;
    }
    SetFocus(tree_);
    if ((keys & MK_SHIFT) != 0 && anchor_ != nullptr)
        select(rowsBetween(*anchor_, *node), node);
    else
        toggle(*node);
    return items_.selected();
}

void TreeSelection::extendFrom(TreeNode* start) {
    TreeNode* const caret = items_.selected();
    if (!several_ || start == nullptr || caret == nullptr)
        return;
    select(rowsBetween(*start, *caret), caret);
    anchor_ = start;
}

/// One of them may have become the caret item, which stays selected.
void TreeSelection::dropOthers() {
    for (const TreeNode* const node : others_)
        if (node != items_.selected())
            mark(*node, false);
    others_.clear();
}

void TreeSelection::caretMoved() {
    if (moving_)
        return;
    dropOthers();
    anchor_ = items_.selected();
}

void TreeSelection::closed(const TreeNode& node) {
    const auto isBelow = [&node](const TreeNode* at) {
        while (at != nullptr && at->parent() != &node)
            at = at->parent();
        return at != nullptr;
    };
    if (isBelow(anchor_))
        anchor_ = nullptr;
    std::erase_if(others_, [&](const TreeNode* other) {
        if (!isBelow(other))
            return false;
        mark(*other, false);
        return true;
    });
}

void TreeSelection::forget(const TreeNode& node) {
    others_.erase(const_cast<TreeNode*>(&node));
    if (anchor_ == &node)
        anchor_ = nullptr;
}

/// Returns the node whose image, text or detail is there.
TreeNode* TreeSelection::nodeAt(POINT point) const {
    TVHITTESTINFO hit = {};
    hit.pt = point;
    SendMessageW(tree_, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    return (hit.flags & (TVHT_ONITEM | TVHT_ONITEMRIGHT)) != 0 ? items_.nodeOf(hit.hItem) : nullptr;
}

void TreeSelection::toggle(TreeNode& node) {
    Nodes all = nodes();
    anchor_ = &node;
    if (std::erase(all, &node) == 0) {
        all.push_back(&node);
        select(all, &node);
    } else {
        TreeNode* const caret = items_.selected();
        select(all, caret != &node ? caret : all.empty() ? nullptr : all.front());
    }
}

/// Returns the rows that are not below a collapsed one.
TreeSelection::Nodes TreeSelection::rowsBetween(TreeNode& one, TreeNode& other) const {
    Nodes ends = {&one, &other};
    sortByRow(ends);
    const HTREEITEM last = items_.itemOf(*ends.back());
    Nodes rows;
    for (HTREEITEM item = items_.itemOf(*ends.front()); item != nullptr;
         item = reinterpret_cast<HTREEITEM>(SendMessageW(tree_, TVM_GETNEXTITEM, TVGN_NEXTVISIBLE,
                                                         reinterpret_cast<LPARAM>(item)))) {
        rows.push_back(items_.nodeOf(item));
        if (item == last)
            break;
    }
    return rows;
}

/// Selects exactly these nodes. `caret` is one of them, or null if there are none.
void TreeSelection::select(const Nodes& nodes, TreeNode* caret) {
    dropOthers();
    moveCaret(caret);
    others_.insert(nodes.begin(), nodes.end());
    others_.erase(caret);
    for (const TreeNode* const node : others_)
        mark(*node, true);
}

void TreeSelection::moveCaret(const TreeNode* node) {
    const FlagScope moving(moving_);
    SendMessageW(tree_, TVM_SELECTITEM, TVGN_CARET,
                 reinterpret_cast<LPARAM>(node == nullptr ? nullptr : items_.itemOf(*node)));
}

void TreeSelection::mark(const TreeNode& node, bool selected) const {
    TVITEMW item = {};
    item.mask = TVIF_STATE;
    item.hItem = items_.itemOf(node);
    item.stateMask = TVIS_SELECTED;
    item.state = selected ? TVIS_SELECTED : 0;
    SendMessageW(tree_, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

}  // namespace pelk
