#pragma once
// The tree control over the portable model.

#include <QPersistentModelIndex>
#include <QTreeView>

#include "platform/desktop/qt/control.h"
#include "platform/desktop/qt/tree_item_model.h"
#include "platform/dialogs.h"

namespace pelk {

/// A tree view that selects nothing of its own accord, opens one level at a time, and is as wide
/// inside as the widest row seen since it was last empty.
class TreeWidget : public QTreeView {
 public:
    explicit TreeWidget(QWidget* parent);
    void reset() override;

 protected:
    int sizeHintForColumn(int column) const override;
    void scrollContentsBy(int dx, int dy) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) override;

 private:
    bool takingFocus_ = false;
    mutable int widestRow_ = 0;
};

/// A node that has lost its last child is closed, unless that happens while `onExpand` runs for
/// it: then its children are counted when the handler has returned.
class QtTreeView : public QtControl<TreeView, TreeWidget> {
 public:
    /// Faults of the handlers go to `dialogs`.
    QtTreeView(QWidget& parent, const TwipScale& scale, Dialogs& dialogs, const Language& language);
    ~QtTreeView() override;

    void select(TreeNode* node) override;
    TreeNode* selected() override;
    void repaint() override;

 private:
    QModelIndex selectedIndex() const;
    // The index is taken by value: what Qt refers to may go when the handler changes the tree.
    void userExpanded(QModelIndex index);
    void userCollapsed(QModelIndex index);
    void closeIfEmpty(const QModelIndex& index);

    Dialogs& dialogs_;
    TreeItemModel items_;
    /// Set while the view is changed by code, which no handler hears of.
    bool silent_ = false;
    QPersistentModelIndex expanding_;
};

}  // namespace pelk
