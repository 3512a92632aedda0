#include "platform/desktop/qt/value_controls.h"

#include <QKeyEvent>
#include <QSignalBlocker>

#include "platform/guard.h"

namespace pelk {

/// Takes the key before a shortcut of the window does.
bool LineWidget::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        handlerOfPlain(static_cast<const QKeyEvent&>(*event)) != nullptr) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void LineWidget::keyPressEvent(QKeyEvent* event) {
    if (const auto handler = handlerOfPlain(*event))
        handler();
    else
        QLineEdit::keyPressEvent(event);
}

void LineWidget::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    onFocusIn();
}

std::function<void()> LineWidget::handlerOfPlain(const QKeyEvent& event) const {
    const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    return isPlain ? handlerOf(event.key()) : nullptr;
}

QtTextBox::QtTextBox(QWidget& parent, const TwipScale& scale, Dialogs& dialogs)
    : QtControl(parent, scale) {
    widget_.handlerOf = [this, &dialogs](int key) -> std::function<void()> {
        if (const auto handler = handlerOf(key))
            return [&dialogs, handler] { guarded(dialogs, handler); };
        return nullptr;
    };
    QObject::connect(&widget_, &QLineEdit::textEdited, [this, &dialogs] {
        if (const auto handler = onChange)
            guarded(dialogs, handler);
    });
    widget_.onFocusIn = [this, &dialogs] {
        if (const auto handler = onFocus)
            guarded(dialogs, handler);
    };
}

void QtTextBox::setText(const std::string& text) {
    widget_.setText(QString::fromStdString(text));
}

void QtTextBox::setPlaceholder(const std::string& hint) {
    widget_.setPlaceholderText(QString::fromStdString(hint));
}

void QtTextBox::focus() {
    widget_.setFocus();
    widget_.selectAll();
}

std::function<void()> QtTextBox::handlerOf(int key) const {
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return onEnter;
        case Qt::Key_Escape:
            return onEscape;
        case Qt::Key_Up:
        case Qt::Key_Down:
            if (onStep)
                return [step = onStep, key] { step(key == Qt::Key_Up ? -1 : 1); };
            return nullptr;
        default:
            return nullptr;
    }
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
