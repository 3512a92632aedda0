#pragma once
// Message, input and file boxes of Qt, the clipboard, the pointer, and the pending events.

#include "platform/dialogs.h"

namespace pelk {

/// Requires: a QApplication. Boxes stand over the active window.
class QtDialogs : public Dialogs {
 public:
    Answer message(const std::string& text, Buttons buttons) override;
    std::string input(const std::string& title, const std::string& prompt,
                      const std::string& initial) override;
    std::string openFile(const std::string& title, const std::string& filter) override;
    std::string saveFile(const std::string& title, const std::string& filter) override;
    void copyToClipboard(const std::string& text) override;
    void setBusyPointer(bool busy) override;
    void processPendingEvents() override;

 private:
    bool busy_ = false;
};

}  // namespace pelk
