#pragma once
// Shows one message: its header fields and its text.

#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QPlainTextEdit>

#include "mailstore/mail_store.h"

namespace pelk {

/// Shows everything as plain text, whatever a message says, and loads nothing.
class MessageWindow : public QDialog {
 public:
    explicit MessageWindow(QWidget* parent);

    /// Replaces the message that is shown, and brings the window to the front.
    void showMessage(const MessageText& message);

 private:
    QFormLayout* fields_;
    QLabel* note_;
    QPlainTextEdit* text_;
};

}  // namespace pelk
