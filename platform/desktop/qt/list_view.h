#pragma once
// The list control on Qt.

#include <QAbstractListModel>
#include <QListView>
#include <memory>

#include "platform/desktop/qt/control.h"

namespace pelk {

class ListWidget : public QListView {
 public:
    explicit ListWidget(QWidget* parent);
    using QListView::scheduleDelayedItemsLayout;
};

class QtListView : public QtControl<ListView, ListWidget> {
 public:
    QtListView(QWidget& parent, const TwipScale& scale);
    ~QtListView() override;

    bool isSelected(std::size_t row) const override;
    void setColumnHeader(const std::string& text) override;

 protected:
    void rowAdded() override;
    void rowRemoved(std::size_t row) override;

 private:
    class Items;

    /// Widens the column for the text of a row. All rows are as wide as the widest one.
    void widenFor(const std::string& text);

    std::unique_ptr<Items> items_;
    int width_ = 0;
};

}  // namespace pelk
