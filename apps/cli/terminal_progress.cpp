#include "apps/cli/terminal_progress.h"

#include <unistd.h>

#include <iostream>

namespace pelk {
namespace {

constexpr std::chrono::milliseconds kInterval{100};
constexpr const char* kWipeLine = "\r\x1b[K";

}  // namespace

TerminalProgress::TerminalProgress() : onTerminal_(::isatty(STDERR_FILENO) == 1) {}

TerminalProgress::~TerminalProgress() {
    if (onTerminal_)
        std::cerr << kWipeLine << std::flush;
}

void TerminalProgress::folderStarted(const std::string& name) {
    folder_ = name;
    write("Reading " + folder_);
}

void TerminalProgress::itemsCounted(int count) {
    count_ = count;
}

void TerminalProgress::itemStarted(int index) {
    if (onTerminal_ && std::chrono::steady_clock::now() >= nextLine_)
        write("Reading " + folder_ + ": " + std::to_string(index) + " of " +
              std::to_string(count_));
}

void TerminalProgress::write(const std::string& line) {
    if (!onTerminal_)
        return;
    nextLine_ = std::chrono::steady_clock::now() + kInterval;
    std::cerr << kWipeLine << line << std::flush;
}

}  // namespace pelk
