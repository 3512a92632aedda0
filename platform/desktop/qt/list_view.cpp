#include "platform/desktop/qt/list_view.h"

#include <QStyle>

namespace pelk {

/// The rows as Qt's model. All have one size, so the view need not ask for each.
class QtListView::Items : public QAbstractListModel {
 public:
    explicit Items(const QtListView& list) : list_(list) {}

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : count_; }
    QVariant data(const QModelIndex& index, int role) const override {
        const auto row = static_cast<std::size_t>(index.row());
        if (role == Qt::SizeHintRole)
            return rowSize_;
        if (role == Qt::DisplayRole && row < list_.rows().size())
            return QString::fromStdString(list_.rows()[row].text);
        return {};
    }

    void setRowSize(const QSize& size) { rowSize_ = size; }
    // The row has already been added or removed, so Qt reads the previous count until it is
    // notified.
    void added() {
        beginInsertRows({}, count_, count_);
        ++count_;
        endInsertRows();
    }
    void removed(int row) {
        beginRemoveRows({}, row, row);
        --count_;
        endRemoveRows();
    }

 private:
    const QtListView& list_;
    int count_ = 0;
    QSize rowSize_;
};

ListWidget::ListWidget(QWidget* parent) : QListView(parent) {
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    setHorizontalScrollMode(ScrollPerPixel);
}

QtListView::QtListView(QWidget& parent, const TwipScale& scale)
    : QtControl(parent, scale), items_(std::make_unique<Items>(*this)) {
    widget_.setModel(items_.get());
    widenFor({});
}

QtListView::~QtListView() {
    widget_.setModel(nullptr);
}

bool QtListView::isSelected(std::size_t row) const {
    return widget_.selectionModel()->isSelected(items_->index(static_cast<int>(row)));
}

void QtListView::setColumnHeader(const std::string& text) {
    widenFor(text);
}

void QtListView::rowAdded() {
    widenFor(rows().back().text);
    items_->added();
}

void QtListView::rowRemoved(std::size_t row) {
    items_->removed(static_cast<int>(row));
}

void QtListView::widenFor(const std::string& text) {
    const QFontMetrics metrics = widget_.fontMetrics();
    const int margin =
        widget_.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &widget_) + 1;
    const int width = metrics.horizontalAdvance(QString::fromStdString(text)) + 2 * margin;
    if (width <= width_)
        return;
    width_ = width;
    items_->setRowSize({width_, metrics.height()});
    widget_.scheduleDelayedItemsLayout();
}

}  // namespace pelk
