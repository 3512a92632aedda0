#include "platform/desktop/qt/tree_item_model.h"

#include <QWidget>

#include "platform/desktop/qt/colors.h"
#include "platform/desktop/qt/images.h"
#include "platform/readable_color.h"
#include "platform/spoken_text.h"

namespace pelk {

QModelIndex TreeItemModel::indexOf(const TreeNode& node) const {
    for (const TreeNode* at = &node; at->parent() != nullptr; at = at->parent())
        if (at->row() >= at->parent()->shownCount())
            return {};
    return indexAt(node);
}

QModelIndex TreeItemModel::indexAt(const TreeNode& node) const {
    return node.parent() == nullptr ? QModelIndex() : createIndex(node.row(), 0, &node);
}

TreeNode& TreeItemModel::nodeAt(const QModelIndex& index) const {
    return index.isValid() ? *static_cast<TreeNode*>(index.internalPointer()) : tree_.root();
}

QModelIndex TreeItemModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || row >= rowCount(parent) || column != 0)
        return {};
    return createIndex(row, 0, nodeAt(parent).children()[static_cast<std::size_t>(row)]);
}

QModelIndex TreeItemModel::parent(const QModelIndex& child) const {
    return child.isValid() ? indexAt(*nodeAt(child).parent()) : QModelIndex();
}

int TreeItemModel::rowCount(const QModelIndex& parent) const {
    const TreeNode& node = nodeAt(parent);
    return isFetched(node) ? node.shownCount() : 0;
}

bool TreeItemModel::hasChildren(const QModelIndex& parent) const {
    return nodeAt(parent).shownCount() > 0;
}

void TreeItemModel::fetchMore(const QModelIndex& parent) {
    const TreeNode& node = nodeAt(parent);
    if (isFetched(node) || node.shownCount() == 0)
        return;
    fetchMore(parent.parent());
    beginInsertRows(parent, 0, node.shownCount() - 1);
    fetched_.insert(&node);
    endInsertRows();
}

bool TreeItemModel::isFetched(const TreeNode& node) const {
    return node.parent() == nullptr || fetched_.contains(&node);
}

QVariant TreeItemModel::data(const QModelIndex& index, int role) const {
    const TreeNode& node = nodeAt(index);
    switch (role) {
        case Qt::DisplayRole:
            return QString::fromStdString(node.text());
        case Qt::DecorationRole:
            return treeIcon(node.image());
        case Qt::ForegroundRole:
            return node.color() ? QVariant(shownColor(*node.color())) : QVariant();
        case Qt::AccessibleTextRole:
            return QString::fromStdString(spokenText(node));
        case Qt::AccessibleDescriptionRole:
            return QString::fromStdString(view_.detail(node));
        default:
            return {};
    }
}

QColor TreeItemModel::shownColor(const Color& color) const {
    return toQt(readableColor(color, fromQt(widget_.palette().base().color())));
}

void TreeItemModel::beforeInsert(TreeNode& parent, int firstRow, int lastRow) {
    changing_ = &parent;
    if (isFetched(parent))
        beginInsertRows(indexAt(parent), firstRow, lastRow);
}

void TreeItemModel::afterInsert() {
    if (isFetched(*changing_))
        endInsertRows();
    else
        unfetchedChanged(indexAt(*changing_));
}

void TreeItemModel::beforeRemove(TreeNode& parent, int firstRow, int lastRow) {
    changing_ = &parent;
    if (isFetched(parent))
        beginRemoveRows(indexAt(parent), firstRow, lastRow);
}

void TreeItemModel::afterRemove() {
    if (!isFetched(*changing_)) {
        unfetchedChanged(indexAt(*changing_));
        return;
    }
    if (changing_->shownCount() == 0)
        fetched_.erase(changing_);
    endRemoveRows();
}

void TreeItemModel::beforeReorder(TreeNode& parent) {
    if (isFetched(parent))
        emit layoutAboutToBeChanged({indexAt(parent)}, VerticalSortHint);
}

void TreeItemModel::afterReorder(TreeNode& parent) {
    if (!isFetched(parent))
        return;
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& index : before)
        after.append(indexAt(nodeAt(index)));
    changePersistentIndexList(before, after);
    emit layoutChanged({indexAt(parent)}, VerticalSortHint);
}

void TreeItemModel::beforeClear() {
    beginResetModel();
    fetched_.clear();
}

void TreeItemModel::changed(TreeNode& node) {
    if (!isFetched(*node.parent()))
        return;
    const QModelIndex index = indexAt(node);
    emit dataChanged(index, index);
}

}  // namespace pelk
