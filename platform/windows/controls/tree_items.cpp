#include "platform/windows/controls/tree_items.h"

#include <algorithm>
#include <utility>

#include "platform/readable_color.h"
#include "platform/spoken_text.h"
#include "platform/windows/controls/colors.h"
#include "platform/windows/controls/flag_scope.h"
#include "platform/windows/controls/tree_detail.h"
#include "platform/windows/wide_text.h"

namespace pelk {

namespace {

/// For fewer rows, painting after each change is faster than repainting the view.
constexpr int kManyRows = 16;

constexpr WPARAM kRedrawOff = 0;
constexpr WPARAM kRedrawOn = static_cast<WPARAM>(-1);

int CALLBACK compareRows(LPARAM one, LPARAM other, LPARAM) {
    return reinterpret_cast<TreeNode*>(one)->row() - reinterpret_cast<TreeNode*>(other)->row();
}

/// The native tree's text is all that a screen reader gets.
bool isScreenReaderRunning() {
    BOOL running = FALSE;
    return SystemParametersInfoW(SPI_GETSCREENREADER, 0, &running, 0) && running;
}

bool isBelow(const TreeNode* node, const TreeNode& ancestor) {
    while (node != nullptr && node->parent() != &ancestor)
        node = node->parent();
    return node != nullptr;
}

LPARAM asParameter(HTREEITEM item) {
    return reinterpret_cast<LPARAM>(item);
}

/// Returns an item that asks for all its data by callback.
TVITEMW askingItem() {
    TVITEMW item = {};
    item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_CHILDREN;
    item.pszText = LPSTR_TEXTCALLBACKW;
    item.iImage = I_IMAGECALLBACK;
    item.iSelectedImage = I_IMAGECALLBACK;
    item.cChildren = I_CHILDRENCALLBACK;
    return item;
}

}  // namespace

/// Suspends painting and measuring while many items are added or removed.
class TreeItems::RedrawHold {
 public:
    RedrawHold(TreeItems& items, int rows) : items_(items), holds_(rows >= kManyRows) {
        if (holds_)
            items_.holdRedraw();
    }
    RedrawHold(const RedrawHold&) = delete;
    RedrawHold& operator=(const RedrawHold&) = delete;
    ~RedrawHold() {
        if (holds_)
            items_.releaseRedraw();
    }

 private:
    TreeItems& items_;
    bool holds_;
};

HTREEITEM TreeItems::itemOf(const TreeNode& node) const {
    const auto found = items_.find(&node);
    return found == items_.end() ? nullptr : found->second;
}

HTREEITEM TreeItems::itemOrRoot(const TreeNode& node) const {
    return node.parent() == nullptr ? TVI_ROOT : itemOf(node);
}

TreeNode* TreeItems::nodeOf(HTREEITEM item) const {
    TVITEMW asked = {};
    asked.mask = TVIF_PARAM;
    asked.hItem = item;
    if (item == nullptr || !SendMessageW(tree_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&asked)))
        return nullptr;
    return reinterpret_cast<TreeNode*>(asked.lParam);
}

TreeNode* TreeItems::selected() const {
    return nodeOf(reinterpret_cast<HTREEITEM>(SendMessageW(tree_, TVM_GETNEXTITEM, TVGN_CARET, 0)));
}

bool TreeItems::isExpanded(const TreeNode& node) const {
    const HTREEITEM item = itemOf(node);
    return item != nullptr &&
           (SendMessageW(tree_, TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), TVIS_EXPANDED) &
            TVIS_EXPANDED) != 0;
}

void TreeItems::setExpanded(const TreeNode& node, bool expanded) {
    if (suspended_)
        wishes_[&node] = expanded;
    else
        expandNow(node, expanded);
}

void TreeItems::expandAbove(const TreeNode& node) {
    for (const TreeNode* above = node.parent(); above->parent() != nullptr;
         above = above->parent()) {
        wishes_.erase(above);
        expandNow(*above, true);
    }
}

/// The native tree would scroll to the children.
void TreeItems::expandNow(const TreeNode& node, bool expanded) {
    const HTREEITEM item = itemOf(node);
    if (item == nullptr || node.shownCount() == 0 || isExpanded(node) == expanded)
        return;
    const FlagScope expanding(expanding_);
    if (!expanded)
        takeSelectionFromBelow(node);
    const LRESULT top = SendMessageW(tree_, TVM_GETNEXTITEM, TVGN_FIRSTVISIBLE, 0);
    SendMessageW(tree_, TVM_EXPAND, expanded ? TVE_EXPAND : TVE_COLLAPSE, asParameter(item));
    if (expanded)
        SendMessageW(tree_, TVM_SELECTITEM, TVGN_FIRSTVISIBLE, top);
}

void TreeItems::takeSelectionFromBelow(const TreeNode& node) const {
    if (onClose)
        onClose(node);
    if (isBelow(selected(), node))
        SendMessageW(tree_, TVM_SELECTITEM, TVGN_CARET, asParameter(itemOf(node)));
}

/// Counts rows and leaves the horizontal position alone, unlike the native tree, which would scroll
/// the last child's text into view.
void TreeItems::scrollToChildren(const TreeNode& node) const {
    const auto next = [this](WPARAM relation, HTREEITEM item) {
        return reinterpret_cast<HTREEITEM>(
            SendMessageW(tree_, TVM_GETNEXTITEM, relation, asParameter(item)));
    };
    const int page = static_cast<int>(SendMessageW(tree_, TVM_GETVISIBLECOUNT, 0, 0));
    const HTREEITEM item = itemOf(node);
    HTREEITEM top = next(TVGN_FIRSTVISIBLE, nullptr);
    int above = 0;
    for (HTREEITEM row = top; row != item && row != nullptr && above < page; ++above)
        row = next(TVGN_NEXTVISIBLE, row);
    const int hidden = node.shownCount() - (page - above - 1);
    for (int rows = std::min(hidden, above); rows > 0; --rows)
        top = next(TVGN_NEXTVISIBLE, top);
    if (hidden > 0 && isExpanded(node))
        SendMessageW(tree_, TVM_SELECTITEM, TVGN_FIRSTVISIBLE, asParameter(top));
}

/// Items are inserted expanded. Expanding or collapsing one later may make the native tree walk all
/// its rows, so for many it is faster to insert all items again.
void TreeItems::fulfilWishes() {
    std::erase_if(wishes_, [this](const auto& wish) {
        const auto& [node, expanded] = wish;
        return node->shownCount() == 0 || isExpanded(*node) == expanded;
    });
    if (wishes_.size() >= kManyRows)
        rebuild();
    else
        for (const auto& [node, expanded] : wishes_)
            expandNow(*node, expanded);
    wishes_.clear();
}

bool TreeItems::isWishedOpen(const TreeNode& node) const {
    const auto wish = wishes_.find(&node);
    return wish != wishes_.end() && wish->second && node.shownCount() > 0;
}

/// Returns the node itself when all its ancestors are expanded.
const TreeNode* TreeItems::highestClosedAbove(const TreeNode& node) const {
    const TreeNode* highest = &node;
    for (const TreeNode* above = node.parent(); above->parent() != nullptr; above = above->parent())
        if (!isExpanded(*above))
            highest = above;
    return highest;
}

/// Inserts all items again, expanded as they are or are meant to be.
void TreeItems::rebuild() {
    const FlagScope rebuilding(rebuilding_);
    const auto nodeAt = [this](WPARAM relation) {
        return nodeOf(
            reinterpret_cast<HTREEITEM>(SendMessageW(tree_, TVM_GETNEXTITEM, relation, 0)));
    };
    const TreeNode* const top = nodeAt(TVGN_FIRSTVISIBLE);
    const TreeNode* const selection = nodeAt(TVGN_CARET);
    const TreeNode& root = *nodeAt(TVGN_ROOT)->parent();
    for (const auto& [node, item] : items_)
        if (node->shownCount() > 0)
            wishes_.try_emplace(node, isExpanded(*node));
    deleteAll();
    insertRows(root, 0, root.shownCount() - 1);
    if (selection != nullptr)
        SendMessageW(tree_, TVM_SELECTITEM, TVGN_CARET,
                     asParameter(itemOf(*highestClosedAbove(*selection))));
    if (top != nullptr)
        SendMessageW(tree_, TVM_SELECTITEM, TVGN_FIRSTVISIBLE, asParameter(itemOf(*top)));
}

void TreeItems::fillIn(TVITEMW& item) const {
    const TreeNode& node = *reinterpret_cast<const TreeNode*>(item.lParam);
    if ((item.mask & TVIF_TEXT) != 0)
        lstrcpynW(item.pszText,
                  toWide(isScreenReaderRunning() ? spokenText(node) : node.text()).c_str(),
                  item.cchTextMax);
    if ((item.mask & TVIF_IMAGE) != 0)
        item.iImage = static_cast<int>(node.image());
    if ((item.mask & TVIF_SELECTEDIMAGE) != 0)
        item.iSelectedImage = static_cast<int>(node.image());
    if ((item.mask & TVIF_CHILDREN) != 0)
        item.cChildren = node.shownCount() > 0 ? 1 : 0;
}

/// On a selected row and in high contrast mode the system's own colours stay, because ours may be
/// unreadable there. Without the focus, the native tree paints a selected row in a grey that is
/// hardly seen; but while the user types into a search field, that row is what was found.
void TreeItems::chooseColors(NMTVCUSTOMDRAW& drawing, const TreeNode& node) const {
    if ((drawing.nmcd.uItemState & CDIS_SELECTED) != 0) {
        drawing.clrText = GetSysColor(COLOR_HIGHLIGHTTEXT);
        drawing.clrTextBk = GetSysColor(COLOR_HIGHLIGHT);
    } else if (node.color() && !isHighContrast()) {
        drawing.clrText =
            toNative(readableColor(*node.color(), fromNative(GetSysColor(COLOR_WINDOW))));
    }
}

LRESULT TreeItems::paint(NMTVCUSTOMDRAW& drawing) const {
    const auto* const node = reinterpret_cast<const TreeNode*>(drawing.nmcd.lItemlParam);
    switch (drawing.nmcd.dwDrawStage) {
        case CDDS_PREPAINT:
            return CDRF_NOTIFYITEMDRAW;
        case CDDS_ITEMPREPAINT:
            if (node != nullptr)
                chooseColors(drawing, *node);
            return CDRF_NOTIFYPOSTPAINT;
        case CDDS_ITEMPOSTPAINT:
            if (node != nullptr)
                paintDetail(drawing, toWide(detailOf(*node)));
            return CDRF_DODEFAULT;
        default:
            return CDRF_DODEFAULT;
    }
}

void TreeItems::itemGone(const TVITEMW& item) {
    const auto* const node = reinterpret_cast<const TreeNode*>(item.lParam);
    items_.erase(node);
    if (onGone && !rebuilding_)
        onGone(*node);
}

void TreeItems::beforeInsert(TreeNode& parent, int firstRow, int lastRow) {
    changing_ = &parent;
    firstRow_ = firstRow;
    lastRow_ = lastRow;
}

void TreeItems::afterInsert() {
    const RedrawHold hold(*this, lastRow_ - firstRow_ + 1);
    insertRows(*changing_, firstRow_, lastRow_);
}

/// Naming the previous sibling spares the native tree a search for the last one.
void TreeItems::insertRows(const TreeNode& parent, int firstRow, int lastRow) {
    TVINSERTSTRUCTW inserted = {};
    inserted.hParent = itemOrRoot(parent);
    const auto childAt = [&parent](int row) {
        return parent.children()[static_cast<std::size_t>(row)];
    };
    inserted.hInsertAfter = firstRow == 0 ? TVI_FIRST : itemOf(*childAt(firstRow - 1));
    for (int row = firstRow; row <= lastRow; ++row) {
        const TreeNode* const node = childAt(row);
        inserted.item = askingItem();
        inserted.item.mask |= TVIF_PARAM;
        inserted.item.lParam = reinterpret_cast<LPARAM>(node);
        if (isWishedOpen(*node)) {
            inserted.item.mask |= TVIF_STATE;
            inserted.item.state = inserted.item.stateMask = TVIS_EXPANDED;
        }
        inserted.hInsertAfter = reinterpret_cast<HTREEITEM>(
            SendMessageW(tree_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&inserted)));
        items_[node] = inserted.hInsertAfter;
        if (node->shownCount() > 0)
            insertRows(*node, 0, node->shownCount() - 1);
    }
}

/// Windows would select a neighbour.
void TreeItems::deselectIfIn(const TreeNode& parent, int firstRow, int lastRow) const {
    const TreeNode* at = selected();
    while (at != nullptr && at->parent() != &parent)
        at = at->parent();
    if (at != nullptr && at->row() >= firstRow && at->row() <= lastRow)
        SendMessageW(tree_, TVM_SELECTITEM, TVGN_CARET, 0);
}

void TreeItems::beforeRemove(TreeNode& parent, int firstRow, int lastRow) {
    const RedrawHold hold(*this, lastRow - firstRow + 1);
    deselectIfIn(parent, firstRow, lastRow);
    for (int row = firstRow; row <= lastRow; ++row) {
        const HTREEITEM item = itemOf(*parent.children()[static_cast<std::size_t>(row)]);
        SendMessageW(tree_, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(item));
    }
    changing_ = &parent;
}

void TreeItems::afterRemove() {
    if (onLoss)
        onLoss(*changing_);
}

void TreeItems::afterReorder(TreeNode& parent) {
    const RedrawHold hold(*this, parent.shownCount());
    TVSORTCB sort = {itemOrRoot(parent), compareRows, 0};
    SendMessageW(tree_, TVM_SORTCHILDRENCB, 0, reinterpret_cast<LPARAM>(&sort));
}

void TreeItems::beforeClear() {
    wishes_.clear();
    holdRedraw();
    deleteAll();
    releaseRedraw();
}

void TreeItems::deleteAll() {
    SendMessageW(tree_, TVM_SELECTITEM, TVGN_CARET, 0);
    while (const LRESULT first = SendMessageW(tree_, TVM_GETNEXTITEM, TVGN_ROOT, 0))
        SendMessageW(tree_, TVM_DELETEITEM, 0, first);
}

void TreeItems::changed(TreeNode& node) {
    TVITEMW item = askingItem();
    item.hItem = itemOf(node);
    SendMessageW(tree_, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    if (holds_ == 0)
        repaintRow(tree_, item.hItem);
}

void TreeItems::redrawSuspended() {
    if (!std::exchange(suspended_, true))
        holdRedraw();
}

void TreeItems::redrawResumed() {
    if (!std::exchange(suspended_, false))
        return;
    fulfilWishes();
    releaseRedraw();
}

void TreeItems::holdRedraw() {
    if (holds_++ == 0)
        SendMessageW(tree_, WM_SETREDRAW, kRedrawOff, 0);
}

void TreeItems::releaseRedraw() {
    if (--holds_ > 0)
        return;
    SendMessageW(tree_, WM_SETREDRAW, kRedrawOn, 0);
    InvalidateRect(tree_, nullptr, TRUE);
}

}  // namespace pelk
