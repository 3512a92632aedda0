#pragma once
// The toolkit's own cheapest way to show as many rows: its tree view over a list of texts.

#include <QCollator>
#include <QStringListModel>
#include <QTreeView>
#include <string>
#include <vector>

namespace pelk {

/// The texts in the order of `QCollator`, letter case apart.
QStringList sortedTexts(const QStringList& texts);

class PlainView {
 public:
    PlainView();
    /// Shows the texts, sorted.
    void fill(const std::vector<std::string>& texts);

 private:
    QStringListModel model_;
    QTreeView view_;
};

/// The same with rows below the first: a model that holds nothing but two lists.
class PlainTree : public QAbstractItemModel {
 public:
    explicit PlainTree(QStringList top) : top_(std::move(top)) {}

    /// Sorts the texts and adds them as rows below the first, where none were before.
    void addRowsBelow(const QStringList& texts);

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex&) const override { return 1; }
    bool hasChildren(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;

 private:
    QStringList top_;
    QStringList below_;
};

}  // namespace pelk
