#pragma once
// The tree control for the portable model.

#include <QPersistentModelIndex>
#include <unordered_map>

#include "platform/desktop/qt/control.h"
#include "platform/desktop/qt/tree_item_model.h"
#include "platform/desktop/qt/tree_widget.h"
#include "platform/dialogs.h"

namespace pelk {

/// A node that loses its last child is collapsed. If that happens while its `onExpand` runs, the
/// children are counted when the handler returns.
class QtTreeView : public QtControl<TreeView, TreeWidget> {
 public:
    /// `dialogs` shows the handlers' exceptions.
    QtTreeView(QWidget& parent, const TwipScale& scale, Dialogs& dialogs, const Language& language);
    ~QtTreeView() override;

    void select(TreeNode* node) override;
    TreeNode* selected() override;
    void allowMultipleSelection() override;
    std::vector<TreeNode*> selectedNodes() override;
    void setExpanded(TreeNode& node, bool expanded) override;
    TreeNode* firstVisible() override;
    void scrollToTop(TreeNode& node) override;
    void repaint() override;

 private:
    /// Tells Qt about rows, and remembers which to expand or collapse when redraw resumes.
    class Items : public TreeItemModel {
     public:
        explicit Items(QtTreeView& view);
        bool isSuspended() const { return suspended_; }
        void expandLater(TreeNode& node, bool expanded) { wishes_[&node] = expanded; }
        void dropWish(const TreeNode& node) { wishes_.erase(&node); }

        void redrawSuspended() override { suspended_ = true; }
        void redrawResumed() override;
        void changed(TreeNode& node) override;
        void forgotten(const TreeNode& node) override {
            dropWish(node);
            TreeItemModel::forgotten(node);
        }
        void beforeClear() override {
            wishes_.clear();
            TreeItemModel::beforeClear();
        }

     private:
        void unfetchedChanged(const QModelIndex& parent) override;

        QtTreeView& view_;
        bool suspended_ = false;
        /// Set when a node has changed while redraw was suspended.
        bool changed_ = false;
        std::unordered_map<const TreeNode*, bool> wishes_;
    };

    void connectUserActs();
    void expandNow(const TreeNode& node, bool expanded);
    void open(const QModelIndex& index);
    void bringOutSelection(const QModelIndex& closed);
    // The index is taken by value because Qt's own may vanish when the handler changes the tree.
    void userExpanded(QModelIndex index);
    void userCollapsed(QModelIndex index);
    void showFilled(const QModelIndex& index);
    void closeIfEmpty(const QModelIndex& index);

    Dialogs& dialogs_;
    Items items_;
    /// Set while code changes the view, so that no handler is called.
    bool silent_ = false;
    QPersistentModelIndex expanding_;
};

}  // namespace pelk
