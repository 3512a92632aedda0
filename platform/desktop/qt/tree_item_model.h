#pragma once
// The portable tree model as Qt's views read it. Nothing is copied: an index points to its node.
//
// Qt hears of the rows below a node when the node is first to be opened, by `fetchMore`, and until
// then only that there are some. Rows that come or go below an open node, or go below a closed one,
// make Qt lay out all rows of the tree anew; a node that is filled when it is opened, while Qt has
// not heard of what it held, costs no more than its own rows.

#include <QAbstractItemModel>
#include <QColor>
#include <unordered_set>

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
    bool hasChildren(const QModelIndex& parent) const override;
    /// Tells Qt of the rows below the node, and below those that it stands under. Qt is not to call
    /// it by itself, as it does so once a node is open: to `canFetchMore` there is nothing to
    /// fetch.
    void fetchMore(const QModelIndex& parent) override;
    bool isFetched(const QModelIndex& parent) const { return isFetched(nodeAt(parent)); }
    int columnCount(const QModelIndex&) const override { return 1; }
    QVariant data(const QModelIndex& index, int role) const override;

    void beforeInsert(TreeNode& parent, int firstRow, int lastRow) override;
    void afterInsert() override;
    void beforeRemove(TreeNode& parent, int firstRow, int lastRow) override;
    void afterRemove() override;
    void beforeReorder(TreeNode& parent) override;
    void afterReorder(TreeNode& parent) override;
    void beforeClear() override;
    void afterClear() override { endResetModel(); }
    void changed(TreeNode& node) override;
    void forgotten(const TreeNode& node) override { fetched_.erase(&node); }

 protected:
    /// Rows came or went of which Qt has not heard: perhaps the first, or the last.
    virtual void unfetchedChanged(const QModelIndex& parent) = 0;

 private:
    QModelIndex indexAt(const TreeNode& node) const;
    bool isFetched(const TreeNode& node) const;
    /// The colour as the view's background allows it.
    QColor shownColor(const Color& color) const;

    TreeModel& tree_;
    const QWidget& view_;
    /// The nodes of whose rows Qt knows, apart from the root, which is always one of them.
    std::unordered_set<const TreeNode*> fetched_;
    /// The node whose rows come or go.
    const TreeNode* changing_ = nullptr;
};

}  // namespace pelk
