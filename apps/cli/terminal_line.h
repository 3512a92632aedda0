#pragma once
// A line on the terminal that shows the progress of a long task.

#include <chrono>
#include <string>

namespace pelk {

/// Writes to standard error if that is a terminal. The destructor erases the line.
class TerminalLine {
 public:
    TerminalLine();
    ~TerminalLine();
    TerminalLine(const TerminalLine&) = delete;
    TerminalLine& operator=(const TerminalLine&) = delete;

    /// Whether to compose the next text: on a terminal, a few times a second.
    bool isDue() const;
    /// Replaces the previous text.
    void write(const std::string& text);

 private:
    bool onTerminal_;
    std::chrono::steady_clock::time_point nextText_;
};

}  // namespace pelk
