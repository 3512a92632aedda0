#pragma once
// What the windows of a program share: the clipboard, the pointer, and the events that wait.

#include <string>

namespace pelk {

class Display {
 public:
    virtual ~Display() = default;

    /// Replaces what is on the clipboard by plain text. Throws `Error` when another program keeps
    /// the clipboard to itself.
    virtual void copyToClipboard(const std::string& text) = 0;

    /// Shows the hourglass pointer over all windows, or the normal one again. Not counted.
    virtual void setBusyPointer(bool busy) = 0;

    /// Handles the events that wait, and returns.
    virtual void processPendingEvents() = 0;
};

}  // namespace pelk
