#pragma once
// Qt's tree view with the behaviour of a tree control.

#include <QTreeView>
#include <functional>

namespace pelk {

/// A tree view that selects nothing by itself, expands one level at a time and reports what the
/// user does to the selection. Its content is as wide as the widest row seen since it was last
/// empty.
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

    /// The user's acts. All must be set before the widget is shown.
    std::function<void(const QModelIndex&)> onSelect;
    std::function<void(QPoint)> onMenuRequest;
    std::function<void()> onDeleteKey;

 protected:
    int sizeHintForColumn(int column) const override;
    void scrollContentsBy(int dx, int dy) override;
    void focusInEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void selectionChanged(const QItemSelection& now, const QItemSelection& before) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) override;

 private:
    void rightPressed(const QMouseEvent& event);
    void rightReleased(const QMouseEvent& event);
    void menuKeyPressed();
    void afterwardsTell(const std::function<void()>& handle);
    void tellOfSelection();

    bool takingFocus_ = false;
    bool handlingEvent_ = false;
    bool selectingForCode_ = false;
    /// The user's selection has not been reported yet.
    bool userSelected_ = false;
    mutable int widestRow_ = 0;
};

}  // namespace pelk
