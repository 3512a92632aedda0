#pragma once
// Calls of the system that a signal may interrupt.

#include <cerrno>

namespace pelk {

/// Calls the system until no signal interrupts it.
template <typename Call>
auto uninterrupted(const Call& call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

}  // namespace pelk
