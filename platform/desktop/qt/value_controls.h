#pragma once
// The controls whose value the user edits: text box and slider.

#include <QLineEdit>
#include <QSlider>

#include "platform/desktop/qt/control.h"
#include "platform/dialogs.h"

namespace pelk {

/// A line of text that gives some of its keys to a handler.
class LineWidget : public QLineEdit {
 public:
    using QLineEdit::QLineEdit;

    /// Returns the handler of a key, or null.
    std::function<std::function<void()>(int key)> handlerOf;
    /// Called when the widget gets the focus.
    std::function<void()> onFocusIn;

 protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

 private:
    std::function<void()> handlerOfPlain(const QKeyEvent& event) const;
};

class QtTextBox : public QtControl<TextBox, LineWidget> {
 public:
    /// `dialogs` shows the handlers' exceptions.
    QtTextBox(QWidget& parent, const TwipScale& scale, Dialogs& dialogs);
    void setText(const std::string& text) override;
    std::string text() const override { return widget_.text().toStdString(); }
    void setPlaceholder(const std::string& hint) override;
    void focus() override;

 private:
    std::function<void()> handlerOf(int key) const;
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
