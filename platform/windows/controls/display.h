#pragma once
// The clipboard, the pointer and the pending events.

#include "platform/display.h"

namespace pelk {

/// Lives on the thread that runs the message loop.
class Win32Display : public Display {
 public:
    void copyToClipboard(const std::string& text) override;
    void setBusyPointer(bool busy) override;
    void processPendingEvents() override;
};

}  // namespace pelk
