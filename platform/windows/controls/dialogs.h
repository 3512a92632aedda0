#pragma once
// Message, input and file boxes.

#include "platform/dialogs.h"

namespace pelk {

/// Boxes stand over the window of this thread that is active, and keep the user from all others.
class Win32Dialogs : public Dialogs {
 public:
    Answer message(const std::string& text, Buttons buttons) override;
    std::string input(const std::string& title, const std::string& prompt,
                      const std::string& initial) override;
    std::string openFile(const std::string& title, const std::string& filter) override;
    std::string saveFile(const std::string& title, const std::string& filter) override;
};

}  // namespace pelk
