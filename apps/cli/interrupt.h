#pragma once
// Turns Ctrl-C into a request to stop, which a long task polls.

#include <csignal>

namespace pelk {

/// While it exists, the first Ctrl-C is only remembered; a second one ends the program. Only one
/// may exist at a time.
class InterruptWatch {
 public:
    InterruptWatch();
    ~InterruptWatch();
    InterruptWatch(const InterruptWatch&) = delete;
    InterruptWatch& operator=(const InterruptWatch&) = delete;

    bool interrupted() const;

 private:
    struct sigaction before_ {};
};

}  // namespace pelk
