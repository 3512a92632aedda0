#pragma once
// Qt's tree view with the behaviour of a tree control.

#include <QPersistentModelIndex>
#include <QTreeView>
#include <functional>

namespace pelk {

/// A tree view that selects nothing by itself, expands one level at a time and reports what the
/// user does to the selection. Its content is as wide as the widest row seen since it was last
/// empty, and at least as wide as the view.
///
/// A row's `Qt::AccessibleDescriptionRole` is its detail, painted in a lighter colour to the right
/// of the text. Details begin in the middle of the view, so that they can be read as a column, or
/// behind a text that is longer. What does not fit is in the row's tool tip.
class TreeWidget : public QTreeView {
 public:
    explicit TreeWidget(QWidget* parent);
    void reset() override;
    using QTreeView::scheduleDelayedItemsLayout;

    /// Returns the selected index, of several the current one; an invalid one when nothing is
    /// selected.
    QModelIndex selectedIndex() const;
    /// Selects the row, or nothing, without reporting it.
    void selectForCode(const QModelIndex& index);
    /// Scrolls the rows below an expanded one into view, as far as that one stays in view.
    void scrollToChildren(const QModelIndex& index);

    /// The user's acts. All must be set before the widget is shown.
    std::function<void(const QModelIndex&)> onSelect;
    std::function<void(QPoint)> onMenuRequest;
    std::function<void()> onDeleteKey;
    /// Returns false when nobody handles it.
    std::function<bool(const QModelIndex&)> onActivate;

 protected:
    int sizeHintForColumn(int column) const override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void focusInEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void selectionChanged(const QItemSelection& now, const QItemSelection& before) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) override;

 private:
    /// Returns the space for the row's detail, and the part of the detail that fits.
    QRect detailSpace(const QModelIndex& index) const;
    QString fittingDetail(const QModelIndex& index) const;
    QColor detailColor(bool selected) const;
    bool showToolTip(const QHelpEvent& event);
    void rightPressed(const QMouseEvent& event);
    void rightReleased(const QMouseEvent& event);
    void menuKeyPressed();
    bool enterPressed(const QKeyEvent& event);
    void afterwardsTell(const std::function<void()>& handle);
    void tellOfActs();

    bool takingFocus_ = false;
    bool handlingEvent_ = false;
    bool selectingForCode_ = false;
    /// The user's selection has not been reported yet.
    bool userSelected_ = false;
    /// The row that the user double-clicked, if it has not been reported yet.
    QPersistentModelIndex doubleClicked_;
    mutable int widestRow_ = 0;
};

}  // namespace pelk
