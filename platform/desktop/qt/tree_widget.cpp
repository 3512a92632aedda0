#include "platform/desktop/qt/tree_widget.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "platform/desktop/qt/colors.h"
#include "platform/desktop/qt/plain_tool_tip.h"
#include "platform/readable_color.h"

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
    connect(this, &QTreeView::doubleClicked,
            [this](const QModelIndex& index) { doubleClicked_ = index; });
}

void TreeWidget::reset() {
    widestRow_ = 0;
    QTreeView::reset();
}

int TreeWidget::sizeHintForColumn(int column) const {
    widestRow_ = std::max(widestRow_, QTreeView::sizeHintForColumn(column));
    return std::max(widestRow_, viewport()->width());
}

void TreeWidget::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QTreeView::drawRow(painter, option, index);
    const QString detail = fittingDetail(index);
    if (detail.isEmpty())
        return;
    painter->setPen(detailColor(selectionModel()->isSelected(index)));
    painter->drawText(detailSpace(index), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      detail);
}

QRect TreeWidget::detailSpace(const QModelIndex& index) const {
    const QRect row = visualRect(index);
    const int gap = fontMetrics().averageCharWidth() * 2;
    const int middle = header()->sectionViewportPosition(0) + viewport()->width() / 2;
    const int left = std::max(row.left() + sizeHintForIndex(index).width() + gap, middle);
    return {left, row.top(), std::max(0, row.right() - gap / 2 - left), row.height()};
}

/// An ellipsis alone tells nothing.
QString TreeWidget::fittingDetail(const QModelIndex& index) const {
    constexpr int kFewest = 3;
    const QString detail = index.data(Qt::AccessibleDescriptionRole).toString();
    const QString fitting =
        fontMetrics().elidedText(detail, Qt::ElideRight, detailSpace(index).width());
    return fitting == detail || fitting.size() > kFewest ? fitting : QString();
}

QColor TreeWidget::detailColor(bool selected) const {
    const auto group = isActiveWindow() ? QPalette::Active : QPalette::Inactive;
    const auto color = [&](QPalette::ColorRole role) {
        return fromQt(palette().color(group, role));
    };
    return toQt(selected ? color(QPalette::HighlightedText)
                         : fadedColor(color(QPalette::Text), color(QPalette::Base)));
}

/// Shows the whole detail where it is cut.
bool TreeWidget::showToolTip(const QHelpEvent& event) {
    const QModelIndex index = indexAt(event.pos());
    const QString detail = index.data(Qt::AccessibleDescriptionRole).toString();
    if (detail == fittingDetail(index))
        return false;
    QToolTip::showText(event.globalPos(), plainToolTip(detail), viewport(), visualRect(index));
    return true;
}

void TreeWidget::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    header()->resizeSections(QHeaderView::ResizeToContents);
}

/// The scroll bar counts rows.
void TreeWidget::scrollToChildren(const QModelIndex& index) {
    if (!isExpanded(index))
        return;
    const QRect row = visualRect(index);
    const int above = row.top() / row.height();
    const int below = model()->rowCount(index) - (viewport()->height() / row.height() - above - 1);
    QScrollBar& bar = *verticalScrollBar();
    bar.setValue(bar.value() + std::clamp(below, 0, std::max(0, above)));
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
    if (event->type() == QEvent::ToolTip && showToolTip(*static_cast<QHelpEvent*>(event)))
        return true;
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
    else if (event->key() == Qt::Key_F10)
        menuKeyPressed();
    else if (!enterPressed(*event))
        afterwardsTell([&] { QTreeView::keyPressEvent(event); });
}

/// Whether the key is Enter, and somebody handles it for the selected row.
bool TreeWidget::enterPressed(const QKeyEvent& event) {
    const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const QModelIndex index = selectedIndex();
    return isEnter && index.isValid() && onActivate(index);
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
        tellOfActs();
}

/// Lets Qt handle an event before it reports what the user did: the handler may remove nodes that
/// Qt is still using.
void TreeWidget::afterwardsTell(const std::function<void()>& handle) {
    const bool outer = std::exchange(handlingEvent_, true);
    handle();
    handlingEvent_ = outer;
    if (!outer)
        tellOfActs();
}

void TreeWidget::tellOfActs() {
    const QModelIndex index = selectedIndex();
    if (std::exchange(userSelected_, false) && index.isValid())
        onSelect(index);
    const QPersistentModelIndex activated = std::exchange(doubleClicked_, QPersistentModelIndex());
    if (activated.isValid())
        onActivate(activated);
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
