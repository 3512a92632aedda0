#include "bench/plain_view.h"

#include <algorithm>

namespace pelk {
namespace {

QStringList toQt(const std::vector<std::string>& texts) {
    QStringList list;
    list.reserve(static_cast<qsizetype>(texts.size()));
    for (const std::string& text : texts)
        list.append(QString::fromStdString(text));
    return list;
}

}  // namespace

QStringList sortedTexts(const QStringList& texts) {
    QCollator collator(QLocale("en_US"));
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<std::pair<QCollatorSortKey, QString>> keyed;
    keyed.reserve(static_cast<std::size_t>(texts.size()));
    for (const QString& text : texts)
        keyed.emplace_back(collator.sortKey(text), text);
    std::sort(keyed.begin(), keyed.end(),
              [](const auto& left, const auto& right) { return left.first < right.first; });
    QStringList sorted;
    sorted.reserve(texts.size());
    for (const auto& [key, text] : keyed)
        sorted.append(text);
    return sorted;
}

PlainView::PlainView() {
    view_.setHeaderHidden(true);
    view_.setUniformRowHeights(true);
    view_.setModel(&model_);
    view_.resize(440, 400);
    view_.show();
}

void PlainView::fill(const std::vector<std::string>& texts) {
    model_.setStringList(sortedTexts(toQt(texts)));
}

void PlainTree::addRowsBelow(const QStringList& texts) {
    beginInsertRows(index(0, 0, {}), 0, static_cast<int>(texts.size()) - 1);
    below_ = sortedTexts(texts);
    endInsertRows();
}

/// Top-level rows have the internal id 0; rows below the first one have 1.
QModelIndex PlainTree::index(int row, int column, const QModelIndex& parent) const {
    return createIndex(row, column, parent.isValid() ? 1 : 0);
}

QModelIndex PlainTree::parent(const QModelIndex& child) const {
    return child.internalId() == 1 ? createIndex(0, 0, quintptr{0}) : QModelIndex();
}

int PlainTree::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid())
        return static_cast<int>(top_.size());
    const bool first = parent.internalId() == 0 && parent.row() == 0;
    return first ? static_cast<int>(below_.size()) : 0;
}

bool PlainTree::hasChildren(const QModelIndex& parent) const {
    return !parent.isValid() || (parent.internalId() == 0 && parent.row() == 0);
}

QVariant PlainTree::data(const QModelIndex& index, int role) const {
    return role == Qt::DisplayRole ? (index.internalId() == 0 ? top_ : below_)[index.row()]
                                   : QVariant();
}

}  // namespace pelk
