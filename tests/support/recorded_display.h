#pragma once
// A display that records what a program asks of it.

#include <functional>
#include <string>
#include <vector>

#include "platform/display.h"

namespace pelk {

class RecordedDisplay : public Display {
 public:
    /// Runs when the program lets pending events be handled.
    std::function<void()> onPendingEvents;
    /// What the program asked for the pointer, in order.
    std::vector<bool> busyPointers;
    /// What the program copied last.
    std::string clipboard;

    void copyToClipboard(const std::string& text) override { clipboard = text; }
    void setBusyPointer(bool busy) override { busyPointers.push_back(busy); }
    void processPendingEvents() override {
        if (onPendingEvents)
            onPendingEvents();
    }
};

}  // namespace pelk
