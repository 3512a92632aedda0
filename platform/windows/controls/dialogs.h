#pragma once
// Message, input and file boxes.

#include "platform/dialogs.h"

namespace pelk {

/// Boxes open over the active window of this thread, and disable all others.
class Win32Dialogs : public Dialogs {
 public:
    Answer message(const std::string& text, Buttons buttons) override;
    std::string input(const std::string& title, const std::string& prompt,
                      const std::string& initial) override;
    std::string openFile(const std::string& title, const std::string& filter) override;
    std::string saveFile(const std::string& title, const std::string& filter) override;
};

}  // namespace pelk
