#include "platform/desktop/qt/value_controls.h"

#include <QSignalBlocker>

#include "platform/guard.h"

namespace pelk {

QtTextBox::QtTextBox(QWidget& parent, const TwipScale& scale, Dialogs& dialogs)
    : QtControl(parent, scale) {
    QObject::connect(&widget_, &QLineEdit::textEdited, [this, &dialogs] {
        if (const auto handler = onChange)
            guarded(dialogs, handler);
    });
}

void QtTextBox::setText(const std::string& text) {
    widget_.setText(QString::fromStdString(text));
}

QtSlider::QtSlider(QWidget& parent, const TwipScale& scale, Dialogs& dialogs)
    : QtControl(parent, scale) {
    widget_.setOrientation(Qt::Horizontal);
    widget_.setSingleStep(1);
    widget_.setPageStep(10);
    setRange(0, 100);
    QObject::connect(&widget_, &QSlider::valueChanged, [this, &dialogs] {
        if (const auto handler = onChange)
            guarded(dialogs, handler);
    });
}

void QtSlider::setRange(int minimum, int maximum) {
    const QSignalBlocker silence(widget_);
    widget_.setRange(minimum, maximum);
}

void QtSlider::setValue(int value) {
    const QSignalBlocker silence(widget_);
    widget_.setValue(value);
}

}  // namespace pelk
