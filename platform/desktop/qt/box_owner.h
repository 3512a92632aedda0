#pragma once
// What all boxes share: the window they belong to, and the normal pointer.

#include <QApplication>

#include "platform/desktop/qt/display.h"

namespace pelk {

inline QWidget* boxOwner() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : QApplication::activeWindow();
}

/// Shows the normal pointer while a box waits for the user.
class PointerForBox {
 public:
    PointerForBox() { QtDisplay().setBusyPointer(false); }
    ~PointerForBox() { QtDisplay().setBusyPointer(busy_); }
    PointerForBox(const PointerForBox&) = delete;
    PointerForBox& operator=(const PointerForBox&) = delete;

 private:
    const bool busy_ = QtDisplay::isPointerBusy();
};

}  // namespace pelk
