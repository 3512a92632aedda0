#pragma once
// Ctrl-C as a wish to stop, which a long task looks at when it can.

#include <csignal>

namespace pelk {

/// For as long as it lives, a first Ctrl-C is only remembered; a second one ends the program. One
/// at a time.
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
