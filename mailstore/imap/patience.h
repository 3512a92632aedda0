#pragma once
// How long to wait for a mail server.

#include <chrono>
#include <functional>

#include "mailstore/imap/imap_faults.h"

namespace pelk {

struct Patience {
    /// How long the server may be silent.
    std::chrono::seconds limit{60};
    /// Called during a wait, with its length so far, about every 100 milliseconds on the waiting
    /// thread. Returns false to end it. May be empty.
    std::function<bool(std::chrono::milliseconds waited)> goesOn = {};
};

/// One wait.
class Wait {
 public:
    static constexpr std::chrono::milliseconds kStep{100};

    /// `patience` must outlive this.
    explicit Wait(const Patience& patience) : patience_(patience) {}

    bool isOver() const { return waited() >= patience_.limit; }
    /// Throws `Cancelled` if the user ends the wait.
    void requireGoingOn() const {
        if (patience_.goesOn && !patience_.goesOn(waited()))
            throw Cancelled(
                "Waiting for the mail server was cancelled. Open the mail again to go on.");
    }

 private:
    std::chrono::milliseconds waited() const {
        return std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::steady_clock::now() - begin_);
    }

    const Patience& patience_;
    const std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

}  // namespace pelk
