#pragma once
// Message, input and file boxes of Qt.

#include "platform/dialogs.h"

namespace pelk {

/// Requires: a QApplication. Boxes open over the active window.
class QtDialogs : public Dialogs {
 public:
    Answer message(const std::string& text, Buttons buttons) override;
    bool confirm(const std::string& question, const std::string& consequence) override;
    using Dialogs::input;
    std::string input(const std::string& title, const std::string& prompt,
                      const std::string& initial, std::size_t selected) override;
    std::string openFile(const std::string& title, const std::string& filter) override;
    std::string saveFile(const std::string& title, const std::string& filter) override;
};

}  // namespace pelk
