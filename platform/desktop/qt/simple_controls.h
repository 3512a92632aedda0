#pragma once
// Label, button and progress bar.

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include "platform/desktop/qt/control.h"
#include "platform/dialogs.h"

namespace pelk {

/// Plain text that wraps; a single line stands in the middle of the height.
class TextWidget : public QLabel {
 public:
    explicit TextWidget(QWidget* parent);
    void align();

 protected:
    void resizeEvent(QResizeEvent* event) override;
};

class QtLabel : public QtControl<Label, TextWidget> {
 public:
    using QtControl::QtControl;
    void setText(const std::string& text) override;
    void repaint() override { widget_.repaint(); }
};

class QtButton : public QtControl<Button, QPushButton> {
 public:
    /// Faults of the click's handler go to `dialogs`.
    QtButton(QWidget& parent, const TwipScale& scale, const std::string& text, Dialogs& dialogs);
};

class QtProgressBar : public QtControl<ProgressBar, QProgressBar> {
 public:
    QtProgressBar(QWidget& parent, const TwipScale& scale);
    void setRange(int minimum, int maximum) override;
    void setValue(int value) override;
};

}  // namespace pelk
