#pragma once
// The progress of a scan as one line on the terminal.

#include <chrono>
#include <string>

#include "scan/scanner.h"

namespace pelk {

/// Writes to standard error when that is a terminal, and nothing otherwise. The line is rewritten
/// a few times a second and wiped at the end.
class TerminalProgress : public ScanProgress {
 public:
    TerminalProgress();
    ~TerminalProgress() override;

    void folderStarted(const std::string& name) override;
    void itemsCounted(int count) override;
    void itemStarted(int index) override;

 private:
    void write(const std::string& line);

    bool onTerminal_;
    std::string folder_;
    int count_ = 0;
    std::chrono::steady_clock::time_point nextLine_;
};

}  // namespace pelk
