#pragma once
// Work on another thread.

#include <future>
#include <system_error>

namespace pelk {

/// Sets to work on another thread, or, when none is to be had, as soon as the result is waited for.
template <typename Work>
std::future<void> startAside(const Work& work) {
    try {
        return std::async(std::launch::async, work);
    } catch (const std::system_error&) {
        return std::async(std::launch::deferred, work);
    }
}

/// Does both, the first on another thread if one is to be had, and returns when both have ended.
/// What either throws is thrown on.
template <typename First, typename Second>
void sideBySide(const First& first, const Second& second) {
    std::future<void> other = startAside([&first] { first(); });
    second();
    other.get();
}

}  // namespace pelk
