#include "platform/desktop/qt/tree_widget.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

namespace pelk {

TreeWidget::TreeWidget(QWidget* parent) : QTreeView(parent) {
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    // A text wider than the view is scrolled to rather than cut. Only the visible rows are measured
    // because measuring all takes too long.
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

/// Qt would select the first row when the view gets the focus without a selection.
QModelIndex TreeWidget::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    return takingFocus_ ? QModelIndex() : QTreeView::moveCursor(action, modifiers);
}

/// Hides the right button from Qt, which would expand a node or drag the selection.
bool TreeWidget::viewportEvent(QEvent* event) {
    const bool press =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (press || event->type() == QEvent::MouseButtonRelease) {
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        if (mouse.button() == Qt::RightButton) {
            press ? rightPressed(mouse) : rightReleased(mouse);
            return true;
        }
    }
    bool handled = false;
    afterwardsTell([&] { handled = QTreeView::viewportEvent(event); });
    return handled;
}

void TreeWidget::rightPressed(const QMouseEvent& event) {
    // The whole row counts, not only its text: the menu must be for the row pointed at.
    const QModelIndex index = indexAt({header()->sectionViewportPosition(0), event.pos().y()});
    if (index.isValid())
        selectionModel()->setCurrentIndex(index, selectionModel()->isSelected(index)
                                                     ? QItemSelectionModel::NoUpdate
                                                     : QItemSelectionModel::ClearAndSelect);
}

void TreeWidget::rightReleased(const QMouseEvent& event) {
    if (viewport()->rect().contains(event.position().toPoint()) && selectedIndex().isValid())
        onMenuRequest(event.globalPosition().toPoint());
}

/// Handles the menu key only; the right button has its own event.
void TreeWidget::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard)
        menuKeyPressed();
}

void TreeWidget::menuKeyPressed() {
    const QModelIndex index = selectedIndex();
    if (!index.isValid())
        return;
    scrollTo(index);
    const QRect row = visualRect(index).intersected(viewport()->rect());
    onMenuRequest(viewport()->mapToGlobal(row.center()));
}

/// Nodes are filled when they are expanded, so expanding a whole subtree would never end.
void TreeWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Asterisk)
        expand(currentIndex());
    else if (event->key() == Qt::Key_Delete)
        onDeleteKey();
    else if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        menuKeyPressed();
    else
        afterwardsTell([&] { QTreeView::keyPressEvent(event); });
}

QModelIndex TreeWidget::selectedIndex() const {
    if (selectionModel()->isSelected(currentIndex()))
        return currentIndex();
    const QModelIndexList indexes = selectionModel()->selectedIndexes();
    return indexes.isEmpty() ? QModelIndex() : indexes.first();
}

void TreeWidget::selectForCode(const QModelIndex& index) {
    const QScopedValueRollback<bool> silence(selectingForCode_, true);
    if (index.isValid())
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    else
        selectionModel()->clear();
}

void TreeWidget::selectionChanged(const QItemSelection& now, const QItemSelection& before) {
    QTreeView::selectionChanged(now, before);
    if (now.isEmpty() || selectingForCode_)
        return;
    userSelected_ = true;
    if (!handlingEvent_)
        tellOfSelection();
}

/// Lets Qt handle an event before it reports the user's selection: the handler may remove nodes
/// that Qt is still using.
void TreeWidget::afterwardsTell(const std::function<void()>& handle) {
    const bool outer = std::exchange(handlingEvent_, true);
    handle();
    handlingEvent_ = outer;
    if (!outer)
        tellOfSelection();
}

void TreeWidget::tellOfSelection() {
    const QModelIndex index = selectedIndex();
    if (std::exchange(userSelected_, false) && index.isValid())
        onSelect(index);
}

/// Qt would select a neighbour when the selected row is removed.
void TreeWidget::rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) {
    QModelIndex at = currentIndex();
    while (at.isValid() && at.parent() != parent)
        at = at.parent();
    if (at.isValid() && at.row() >= first && at.row() <= last)
        selectionModel()->clear();
    QTreeView::rowsAboutToBeRemoved(parent, first, last);
}

}  // namespace pelk
