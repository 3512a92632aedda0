#pragma once
// The tree model as Qt's item model. Nothing is copied: an index points to its node.
//
// `fetchMore` tells Qt about the rows below a node when the node is first expanded; until then Qt
// knows only that there are some. Adding or removing rows below an expanded node, or removing them
// below a collapsed one, makes Qt lay out the whole tree again. Filling a node while Qt does not
// know its old rows costs only its own rows.

#include <QAbstractItemModel>
#include <QColor>
#include <unordered_set>

#include "platform/controls.h"

class QWidget;

namespace pelk {

class TreeItemModel : public QAbstractItemModel, public TreeListener {
 public:
    /// Adapts colours to the palette of `widget`. The caller passes this object to the model's
    /// `setListener`. `view` and `widget` must outlive it.
    TreeItemModel(TreeView& view, const QWidget& widget)
        : view_(view), tree_(view.model()), widget_(widget) {}

    /// Returns the index of the node; an invalid one for the root and for a node that the native
    /// tree does not know yet.
    QModelIndex indexOf(const TreeNode& node) const;
    /// Returns the node at the index; the root for an invalid one.
    TreeNode& nodeAt(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent) const override;
    bool hasChildren(const QModelIndex& parent) const override;
    /// Tells Qt about the rows below the node and its ancestors. `canFetchMore` returns false, so
    /// that Qt does not call this for every expanded node.
    void fetchMore(const QModelIndex& parent) override;
    bool isFetched(const QModelIndex& parent) const { return isFetched(nodeAt(parent)); }
    int columnCount(const QModelIndex&) const override { return 1; }
    /// The detail of a node is its accessible description: screen readers read it after the text.
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
    /// Called when rows that Qt does not know were added or removed: perhaps the first or the last.
    virtual void unfetchedChanged(const QModelIndex& parent) = 0;

 private:
    QModelIndex indexAt(const TreeNode& node) const;
    bool isFetched(const TreeNode& node) const;
    /// Returns the colour adapted to the view's background.
    QColor shownColor(const Color& color) const;

    const TreeView& view_;
    TreeModel& tree_;
    const QWidget& widget_;
    /// The nodes whose rows Qt knows. The root is always one of them and not listed.
    std::unordered_set<const TreeNode*> fetched_;
    /// The node whose rows are being changed.
    const TreeNode* changing_ = nullptr;
};

}  // namespace pelk
