#pragma once
// One line on the terminal that tells how far a long task is.

#include <chrono>
#include <string>

namespace pelk {

/// Writes to standard error when that is a terminal, and nothing otherwise. The line is wiped at
/// the end.
class TerminalLine {
 public:
    TerminalLine();
    ~TerminalLine();
    TerminalLine(const TerminalLine&) = delete;
    TerminalLine& operator=(const TerminalLine&) = delete;

    /// Whether it is worth composing the next text: on a terminal, a few times a second.
    bool isDue() const;
    /// Puts the text in place of the one before.
    void write(const std::string& text);

 private:
    bool onTerminal_;
    std::chrono::steady_clock::time_point nextText_;
};

}  // namespace pelk
