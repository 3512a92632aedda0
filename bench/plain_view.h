#pragma once
// Qt's cheapest way to show as many rows: its tree view over a list of texts.

#include <QCollator>
#include <QStringListModel>
#include <QTreeView>
#include <string>
#include <vector>

namespace pelk {

/// Returns the texts in the order of `QCollator`, ignoring case.
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

/// A minimal tree model of two lists: the top-level rows, and the rows below the first one.
class PlainTree : public QAbstractItemModel {
 public:
    explicit PlainTree(QStringList top) : top_(std::move(top)) {}

    /// Sorts the texts and adds them as rows below the first row. Requires: there are none yet.
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
