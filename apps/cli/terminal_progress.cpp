#include "apps/cli/terminal_progress.h"

#include "apps/cli/terminal_text.h"

namespace pelk {

void TerminalProgress::noticed(const std::string& notice) {
    tell(notice);
}

void TerminalProgress::folderStarted(const std::string& name) {
    folder_ = name;
    line_.write("Reading " + folder_);
}

void TerminalProgress::itemsCounted(int count) {
    count_ = count;
}

void TerminalProgress::itemStarted(int index) {
    if (line_.isDue())
        line_.write("Reading " + folder_ + ": " + std::to_string(index) + " of " +
                    std::to_string(count_));
}

}  // namespace pelk
