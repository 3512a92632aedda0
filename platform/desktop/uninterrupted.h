#pragma once
// Retries system calls that a signal interrupted.

#include <cerrno>

namespace pelk {

/// Repeats the call while it fails with EINTR.
template <typename Call>
auto uninterrupted(const Call& call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

}  // namespace pelk
