#pragma once
// The clipboard, the pointer and the pending events, which all windows share. Only the thread that
// owns the windows may call.

#include <string>

namespace pelk {

class Display {
 public:
    virtual ~Display() = default;

    /// Replaces the content of the clipboard by plain text. Throws `Error` when another program
    /// locks the clipboard.
    virtual void copyToClipboard(const std::string& text) = 0;

    /// Shows the hourglass pointer over all windows, or the normal one again. Calls are not
    /// counted.
    virtual void setBusyPointer(bool busy) = 0;

    /// Handles the pending events, and returns.
    virtual void processPendingEvents() = 0;
};

}  // namespace pelk
