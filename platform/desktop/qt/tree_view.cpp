#include "platform/desktop/qt/tree_view.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

#include "platform/guard.h"

namespace pelk {

namespace {

bool isBelow(QModelIndex index, const QModelIndex& ancestor) {
    while (index.isValid() && index.parent() != ancestor)
        index = index.parent();
    return index.isValid();
}

}  // namespace

TreeWidget::TreeWidget(QWidget* parent) : QTreeView(parent) {
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    // Texts wider than the view are reached by scrolling, not cut. Only the rows in view are
    // measured: all of them would take too long.
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setResizeContentsPrecision(0);
    const int image = std::max(16, fontMetrics().height());
    setIconSize({image, image});
}

void TreeWidget::reset() {
    widestRow_ = 0;
    QTreeView::reset();
}

int TreeWidget::sizeHintForColumn(int column) const {
    widestRow_ = std::max(widestRow_, QTreeView::sizeHintForColumn(column));
    return widestRow_;
}

void TreeWidget::scrollContentsBy(int dx, int dy) {
    QTreeView::scrollContentsBy(dx, dy);
    if (dy != 0)
        header()->resizeSections(QHeaderView::ResizeToContents);
}

void TreeWidget::focusInEvent(QFocusEvent* event) {
    const QScopedValueRollback<bool> taking(takingFocus_, true);
    QTreeView::focusInEvent(event);
}

/// Qt moves to the first row when the view gets the focus and nothing is selected.
QModelIndex TreeWidget::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    return takingFocus_ ? QModelIndex() : QTreeView::moveCursor(action, modifiers);
}

/// Nodes are filled when they are opened, so opening all that stands below one has no end.
void TreeWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Asterisk)
        expand(currentIndex());
    else
        QTreeView::keyPressEvent(event);
}

/// Qt selects a neighbour when the selected row goes away.
void TreeWidget::rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) {
    QModelIndex at = currentIndex();
    while (at.isValid() && at.parent() != parent)
        at = at.parent();
    if (at.isValid() && at.row() >= first && at.row() <= last)
        selectionModel()->clear();
    QTreeView::rowsAboutToBeRemoved(parent, first, last);
}

QtTreeView::QtTreeView(QWidget& parent, const TwipScale& scale, Dialogs& dialogs,
                       const Language& language)
    : QtControl(parent, scale, language), dialogs_(dialogs), items_(model(), widget_) {
    model().setListener(&items_);
    widget_.setModel(&items_);
    QObject::connect(&widget_, &QTreeView::expanded,
                     [this](const QModelIndex& index) { userExpanded(index); });
    QObject::connect(&widget_, &QTreeView::collapsed,
                     [this](const QModelIndex& index) { userCollapsed(index); });
    QObject::connect(&items_, &QAbstractItemModel::rowsRemoved,
                     [this](const QModelIndex& index) { closeIfEmpty(index); });
}

QtTreeView::~QtTreeView() {
    model().setListener(nullptr);
    widget_.setModel(nullptr);
}

void QtTreeView::select(TreeNode* node) {
    const QScopedValueRollback<bool> silence(silent_, true);
    const QModelIndex index = node == nullptr ? QModelIndex() : items_.indexOf(*node);
    if (!index.isValid()) {
        widget_.selectionModel()->clear();
        return;
    }
    for (QModelIndex at = index.parent(); at.isValid(); at = at.parent())
        widget_.expand(at);
    widget_.selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    widget_.scrollTo(index);
}

TreeNode* QtTreeView::selected() {
    const QModelIndex index = selectedIndex();
    return index.isValid() ? &items_.nodeAt(index) : nullptr;
}

QModelIndex QtTreeView::selectedIndex() const {
    const QModelIndexList indexes = widget_.selectionModel()->selectedIndexes();
    return indexes.isEmpty() ? QModelIndex() : indexes.first();
}

void QtTreeView::repaint() {
    widget_.viewport()->repaint();
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
    closeIfEmpty(node);
}

void QtTreeView::userCollapsed(QModelIndex index) {
    if (silent_)
        return;
    // The selection does not stay where it cannot be seen.
    if (isBelow(selectedIndex(), index))
        widget_.selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
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
