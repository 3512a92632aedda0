#pragma once
// Messages to a user who has a terminal and no windows.

#include "platform/dialogs.h"

namespace pelk {

/// Messages go to standard error; nothing is ever asked, and every question is declined.
class TerminalDialogs : public Dialogs {
 public:
    Answer message(const std::string& text, Buttons buttons) override;
    std::string input(const std::string&, const std::string&, const std::string&) override {
        return {};
    }
    std::string openFile(const std::string&, const std::string&) override { return {}; }
    std::string saveFile(const std::string&, const std::string&) override { return {}; }
};

}  // namespace pelk
