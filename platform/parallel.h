#pragma once
// Runs work on another thread.

#include <future>
#include <system_error>

namespace pelk {

/// Runs `work` on another thread; if the system has no thread left, when the result is waited for.
template <typename Work>
std::future<void> runAsync(const Work& work) {
    try {
        return std::async(std::launch::async, work);
    } catch (const std::system_error&) {
        return std::async(std::launch::deferred, work);
    }
}

/// Runs both, the first on another thread if possible, and returns when both have ended. Passes on
/// the exceptions of both.
template <typename First, typename Second>
void runInParallel(const First& first, const Second& second) {
    std::future<void> other = runAsync([&first] { first(); });
    second();
    other.get();
}

}  // namespace pelk
