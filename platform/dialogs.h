#pragma once
// Modal boxes for messages, a line of text, and the choice of files. Only the thread that owns the
// windows may call.

#include <cstddef>
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
    /// Asks before an act that the user may not want: shows the question with what would follow
    /// from OK on the line below. Cancel is the default button. Returns whether the answer is OK.
    virtual bool confirm(const std::string& question, const std::string& consequence) = 0;

    /// Asks for a line of text. Empty when the user cancels. At first, the first `selected` bytes
    /// of `initial` are selected, so that typing replaces them; without a number, all of it.
    virtual std::string input(const std::string& title, const std::string& prompt,
                              const std::string& initial, std::size_t selected) = 0;
    std::string input(const std::string& title, const std::string& prompt,
                      const std::string& initial) {
        return input(title, prompt, initial, initial.size());
    }

    /// Asks for a file to open, which must exist, or for one to write, with a question before one
    /// is replaced. `filter` names the kinds of files and their patterns in turn, separated by "|":
    /// "Texts (*.txt)|*.txt|All files (*.*)|*.*". Returns the path, empty when the user cancels.
    virtual std::string openFile(const std::string& title, const std::string& filter) = 0;
    virtual std::string saveFile(const std::string& title, const std::string& filter) = 0;
};

}  // namespace pelk
