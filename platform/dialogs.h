#pragma once
// Modal boxes, the pointer, and the pending events of the user interface.

#include <string>

namespace pelk {

enum class Buttons { Ok, OkCancel, YesNo };
enum class Answer { Ok, Cancel, Yes, No };

class Dialogs {
 public:
    virtual ~Dialogs() = default;

    /// Shows the text in a modal box with the program's name as title, and waits. Closing the box
    /// answers Cancel, or No where there is no Cancel, or Ok where there is neither.
    virtual Answer message(const std::string& text, Buttons buttons) = 0;
    /// Asks for a line of text. Empty when the user cancels.
    virtual std::string input(const std::string& title, const std::string& prompt,
                              const std::string& initial) = 0;

    /// Shows the hourglass pointer over all windows, or the normal one again. Not counted.
    virtual void setBusyPointer(bool busy) = 0;
    /// Lets the user interface handle what is waiting, and returns.
    virtual void processPendingEvents() = 0;
};

}  // namespace pelk
