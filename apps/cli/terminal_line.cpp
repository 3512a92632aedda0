#include "apps/cli/terminal_line.h"

#include <unistd.h>

#include <iostream>

#include "apps/cli/terminal_text.h"

namespace pelk {
namespace {

constexpr std::chrono::milliseconds kInterval{100};
constexpr const char* kWipeLine = "\r\x1b[K";

}  // namespace

TerminalLine::TerminalLine() : onTerminal_(::isatty(STDERR_FILENO) == 1) {}

TerminalLine::~TerminalLine() {
    if (onTerminal_)
        std::cerr << kWipeLine << std::flush;
}

bool TerminalLine::isDue() const {
    return onTerminal_ && std::chrono::steady_clock::now() >= nextText_;
}

void TerminalLine::write(const std::string& text) {
    if (!onTerminal_)
        return;
    nextText_ = std::chrono::steady_clock::now() + kInterval;
    std::cerr << kWipeLine << terminalText(text) << std::flush;
}

}  // namespace pelk
