#include "platform/desktop/qt/display.h"

#include <QClipboard>
#include <QCursor>
#include <QGuiApplication>

#include "platform/error.h"

namespace pelk {

void QtDisplay::copyToClipboard(const std::string& text) {
    const QString copied = QString::fromStdString(text);
    QClipboard& clipboard = *QGuiApplication::clipboard();
    clipboard.setText(copied);
    // Qt does not report whether it could write to the clipboard.
    if (clipboard.text() != copied)
        throw Error("The text could not be copied: another program keeps the clipboard.");
}

bool QtDisplay::isPointerBusy() {
    return QGuiApplication::overrideCursor() != nullptr;
}

void QtDisplay::setBusyPointer(bool busy) {
    if (busy == isPointerBusy())
        return;
    if (busy)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

void QtDisplay::processPendingEvents() {
    QCoreApplication::processEvents();
}

}  // namespace pelk
