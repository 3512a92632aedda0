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

/// The right button is kept from Qt, which would open a node by it and drag the selection.
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
    // Beside its text, too: the menu must not be for another row than the one pointed at.
    const QModelIndex index = indexAt({header()->sectionViewportPosition(0), event.pos().y()});
    if (index.isValid())
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
}

void TreeWidget::rightReleased(const QMouseEvent& event) {
    if (viewport()->rect().contains(event.position().toPoint()) && selectedIndex().isValid())
        onMenuRequest(event.globalPosition().toPoint());
}

/// Only the menu key: what the mouse asks for is known from its button.
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

/// Nodes are filled when they are opened, so opening all that stands below one has no end.
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

/// Lets Qt handle an event, and only then tells of what the user has selected by it: the handler
/// may remove the nodes that Qt holds on to meanwhile.
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

/// Qt selects a neighbour when the selected row goes away.
void TreeWidget::rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) {
    QModelIndex at = currentIndex();
    while (at.isValid() && at.parent() != parent)
        at = at.parent();
    if (at.isValid() && at.row() >= first && at.row() <= last)
        selectionModel()->clear();
    QTreeView::rowsAboutToBeRemoved(parent, first, last);
}

}  // namespace pelk
