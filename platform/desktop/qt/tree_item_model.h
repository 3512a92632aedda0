#pragma once
// The portable tree model as Qt's views read it. Nothing is copied: an index points to its node.

#include <QAbstractItemModel>
#include <QColor>

#include "platform/tree_model.h"

class QWidget;

namespace pelk {

class TreeItemModel : public QAbstractItemModel, public TreeListener {
 public:
    /// Colours are fitted to the palette of `view`. Both must outlive the item model, which the
    /// tree model is to be told of by its `setListener`.
    TreeItemModel(TreeModel& tree, const QWidget& view) : tree_(tree), view_(view) {}

    /// The index of the node; an invalid one for the root and for a node that the native tree
    /// does not know of yet.
    QModelIndex indexOf(const TreeNode& node) const;
    /// The node at the index; the root at an invalid one.
    TreeNode& nodeAt(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex&) const override { return 1; }
    QVariant data(const QModelIndex& index, int role) const override;

    void beforeInsert(TreeNode& parent, int firstRow, int lastRow) override;
    void afterInsert() override { endInsertRows(); }
    void beforeRemove(TreeNode& parent, int firstRow, int lastRow) override;
    void afterRemove() override { endRemoveRows(); }
    void beforeReorder(TreeNode& parent) override;
    void afterReorder(TreeNode& parent) override;
    void beforeClear() override { beginResetModel(); }
    void afterClear() override { endResetModel(); }
    void changed(TreeNode& node) override;

 private:
    QModelIndex indexAt(const TreeNode& node) const;
    /// The colour as the view's background allows it.
    QColor shownColor(const Color& color) const;

    TreeModel& tree_;
    const QWidget& view_;
};

}  // namespace pelk
