#include "apps/desktop/message_window.h"

#include <QLineEdit>
#include <QVBoxLayout>

namespace pelk {
namespace {

constexpr QSize kWindowSize{680, 520};

/// A line that can be scrolled and copied, because it may be very long.
QLineEdit* fieldWidget(const QString& text) {
    auto* const line = new QLineEdit(text);
    line->setReadOnly(true);
    line->setFrame(false);
    line->setCursorPosition(0);
    QPalette palette = line->palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    line->setPalette(palette);
    return line;
}

}  // namespace

MessageWindow::MessageWindow(QWidget* parent)
    : QDialog(parent), fields_(new QFormLayout), note_(new QLabel), text_(new QPlainTextEdit) {
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(fields_);
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    layout->addWidget(note_);
    text_->setReadOnly(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text_->setAccessibleName(QStringLiteral("Text of the message"));
    layout->addWidget(text_, 1);
    resize(kWindowSize);
}

void MessageWindow::showMessage(const MessageText& message) {
    while (fields_->rowCount() > 0)
        fields_->removeRow(0);
    QString title = QStringLiteral("Message");
    for (const auto& [name, value] : message.fields) {
        const QString caption = QString::fromStdString(name);
        const QString shown = QString::fromStdString(value);
        QLineEdit* const line = fieldWidget(shown);
        line->setAccessibleName(caption);
        fields_->addRow(caption + ':', line);
        if (name == "Subject")
            title = shown;
    }
    setWindowTitle(title);
    note_->setText(QString::fromStdString(message.note));
    note_->setVisible(!message.note.empty());
    text_->setPlainText(QString::fromStdString(message.text));
    text_->setVisible(!message.text.empty());
    text_->setFocus();
    show();
    raise();
    activateWindow();
}

}  // namespace pelk
