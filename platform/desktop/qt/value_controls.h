#pragma once
// The controls whose value the user edits: text box and slider.

#include <QLineEdit>
#include <QSlider>

#include "platform/desktop/qt/control.h"
#include "platform/dialogs.h"

namespace pelk {

class QtTextBox : public QtControl<TextBox, QLineEdit> {
 public:
    /// `dialogs` shows the handler's exceptions.
    QtTextBox(QWidget& parent, const TwipScale& scale, Dialogs& dialogs);
    void setText(const std::string& text) override;
    std::string text() const override { return widget_.text().toStdString(); }
};

class QtSlider : public QtControl<Slider, QSlider> {
 public:
    /// `dialogs` shows the handler's exceptions.
    QtSlider(QWidget& parent, const TwipScale& scale, Dialogs& dialogs);
    void setRange(int minimum, int maximum) override;
    void setValue(int value) override;
    int value() const override { return widget_.value(); }
};

}  // namespace pelk
