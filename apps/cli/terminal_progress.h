#pragma once
// The progress of a scan as one line on the terminal.

#include <string>

#include "apps/cli/terminal_line.h"
#include "scan/scanner.h"

namespace pelk {

class TerminalProgress : public ScanProgress {
 public:
    void noticed(const std::string& notice) override;
    void folderStarted(const std::string& name) override;
    void itemsCounted(int count) override;
    void itemStarted(int index) override;

 private:
    TerminalLine line_;
    std::string folder_;
    int count_ = 0;
};

}  // namespace pelk
