#pragma once
// The bar chart on Qt.

#include "platform/desktop/qt/control.h"

namespace pelk {

class ChartWidget : public QWidget {
 public:
    explicit ChartWidget(QWidget* parent);
    void setContent(ChartContent content);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    ChartContent content_;
};

class QtBarChart : public QtControl<BarChart, ChartWidget> {
 public:
    using QtControl::QtControl;
    void setContent(ChartContent content) override { widget_.setContent(std::move(content)); }
};

}  // namespace pelk
