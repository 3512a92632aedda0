#pragma once
// The clipboard, the pointer and the pending events of Qt.

#include "platform/display.h"

namespace pelk {

/// Requires: a QApplication.
class QtDisplay : public Display {
 public:
    static bool isPointerBusy();
    void copyToClipboard(const std::string& text) override;
    void setBusyPointer(bool busy) override;
    void processPendingEvents() override;
};

}  // namespace pelk
