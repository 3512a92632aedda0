#include "platform/desktop/qt/tree_view.h"

#include <QScopedValueRollback>
#include <utility>

#include "platform/guard.h"
#include "platform/tree_order.h"

namespace pelk {

namespace {

bool isBelow(QModelIndex index, const QModelIndex& ancestor) {
    while (index.isValid() && index.parent() != ancestor)
        index = index.parent();
    return index.isValid();
}

}  // namespace

QtTreeView::QtTreeView(QWidget& parent, const TwipScale& scale, Dialogs& dialogs,
                       const Language& language)
    : QtControl(parent, scale, language), dialogs_(dialogs), items_(*this) {
    model().setListener(&items_);
    widget_.setModel(&items_);
    QObject::connect(&widget_, &QTreeView::expanded,
                     [this](const QModelIndex& index) { userExpanded(index); });
    QObject::connect(&widget_, &QTreeView::collapsed,
                     [this](const QModelIndex& index) { userCollapsed(index); });
    QObject::connect(&items_, &QAbstractItemModel::rowsRemoved,
                     [this](const QModelIndex& index) { closeIfEmpty(index); });
    connectUserActs();
}

void QtTreeView::connectUserActs() {
    widget_.onSelect = [this](const QModelIndex& index) {
        if (const auto handler = onSelect)
            guarded(dialogs_, [&] { handler(items_.nodeAt(index)); });
    };
    widget_.onMenuRequest = [this](QPoint where) {
        if (const auto handler = onMenuRequest)
            guarded(dialogs_, [&] { handler({where.x(), where.y()}); });
    };
    widget_.onActivate = [this](const QModelIndex& index) {
        const auto handler = onActivate;
        if (handler)
            guarded(dialogs_, [&] { handler(items_.nodeAt(index)); });
        return static_cast<bool>(handler);
    };
    widget_.onDeleteKey = [this] {
        if (const auto handler = onDeleteKey)
            guarded(dialogs_, handler);
    };
}

QtTreeView::~QtTreeView() {
    model().setListener(nullptr);
    widget_.setModel(nullptr);
}

void QtTreeView::select(TreeNode* node) {
    const QScopedValueRollback<bool> silence(silent_, true);
    const QModelIndex index = node == nullptr ? QModelIndex() : items_.indexOf(*node);
    for (QModelIndex at = index.parent(); at.isValid(); at = at.parent()) {
        items_.dropWish(items_.nodeAt(at));
        open(at);
    }
    widget_.selectForCode(index);
    if (index.isValid())
        widget_.scrollTo(index);
}

void QtTreeView::setExpanded(TreeNode& node, bool expanded) {
    if (items_.isSuspended())
        items_.expandLater(node, expanded);
    else
        expandNow(node, expanded);
}

void QtTreeView::expandNow(const TreeNode& node, bool expanded) {
    const QModelIndex index = items_.indexOf(node);
    if (!index.isValid() || (expanded && !items_.hasChildren(index)))
        return;
    if (!expanded)
        bringOutSelection(index);
    const QScopedValueRollback<bool> silence(silent_, true);
    // Qt then lays out the rows once instead of after each expanded node.
    widget_.scheduleDelayedItemsLayout();
    expanded ? open(index) : widget_.collapse(index);
}

void QtTreeView::open(const QModelIndex& index) {
    items_.fetchMore(index);
    widget_.expand(index);
}

/// Moves the selection out of a collapsed node, where it would be invisible.
void QtTreeView::bringOutSelection(const QModelIndex& closed) {
    if (isBelow(widget_.selectedIndex(), closed)) {
        widget_.selectForCode(closed);
        return;
    }
    for (const QModelIndex& index : widget_.selectionModel()->selectedIndexes())
        if (isBelow(index, closed))
            widget_.selectionModel()->select(index, QItemSelectionModel::Deselect);
}

TreeNode* QtTreeView::selected() {
    const QModelIndex index = widget_.selectedIndex();
    return index.isValid() ? &items_.nodeAt(index) : nullptr;
}

void QtTreeView::allowMultipleSelection() {
    widget_.setSelectionMode(QAbstractItemView::ExtendedSelection);
}

std::vector<TreeNode*> QtTreeView::selectedNodes() {
    std::vector<TreeNode*> nodes;
    for (const QModelIndex& index : widget_.selectionModel()->selectedIndexes())
        if (index.column() == 0)
            nodes.push_back(&items_.nodeAt(index));
    sortByRow(nodes);
    return nodes;
}

TreeNode* QtTreeView::firstVisible() {
    const QModelIndex index = widget_.indexAt({widget_.viewport()->rect().left() + 1, 1});
    return index.isValid() ? &items_.nodeAt(index) : nullptr;
}

void QtTreeView::scrollToTop(TreeNode& node) {
    widget_.scrollTo(items_.indexOf(node), QAbstractItemView::PositionAtTop);
}

void QtTreeView::repaint() {
    widget_.viewport()->repaint();
}

QtTreeView::Items::Items(QtTreeView& view) : TreeItemModel(view, view.widget_), view_(view) {}

void QtTreeView::Items::redrawResumed() {
    suspended_ = false;
    for (const auto& [node, expanded] : std::exchange(wishes_, {}))
        view_.expandNow(*node, expanded);
    if (std::exchange(changed_, false))
        view_.widget_.scheduleDelayedItemsLayout();
}

/// Qt measures the rows in view again after each changed node that it is told of.
void QtTreeView::Items::changed(TreeNode& node) {
    if (suspended_)
        changed_ = true;
    else
        TreeItemModel::changed(node);
}

/// Layout finds out which nodes have expanders. A node that is being filled gets its layout
/// afterwards.
void QtTreeView::Items::unfetchedChanged(const QModelIndex& parent) {
    if (parent != view_.expanding_)
        view_.widget_.scheduleDelayedItemsLayout();
}

void QtTreeView::userExpanded(QModelIndex index) {
    if (silent_)
        return;
    if (!items_.hasChildren(index)) {
        closeIfEmpty(index);
        return;
    }
    const QPersistentModelIndex node = index;
    const auto outer = std::exchange(expanding_, node);
    if (const auto handler = onExpand)
        guarded(dialogs_, [&] { handler(items_.nodeAt(index)); });
    expanding_ = outer;
    showFilled(node);
    if (node.isValid())
        widget_.scrollToChildren(node);
}

/// Qt expanded the node before it had rows. Collapsed, it can be filled without a layout per row.
void QtTreeView::showFilled(const QModelIndex& index) {
    if (!widget_.isExpanded(index) || items_.isFetched(index))
        return;
    const QScopedValueRollback<bool> silence(silent_, true);
    widget_.collapse(index);
    items_.hasChildren(index) ? open(index) : widget_.scheduleDelayedItemsLayout();
}

void QtTreeView::userCollapsed(QModelIndex index) {
    if (silent_)
        return;
    bringOutSelection(index);
    if (const auto handler = onCollapse)
        guarded(dialogs_, [&] { handler(items_.nodeAt(index)); });
}

void QtTreeView::closeIfEmpty(const QModelIndex& index) {
    if (!index.isValid() || index == expanding_ || items_.hasChildren(index))
        return;
    const QScopedValueRollback<bool> silence(silent_, true);
    widget_.collapse(index);
}

}  // namespace pelk
