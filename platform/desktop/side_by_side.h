#pragma once
// Two pieces of work at once.

#include <future>

namespace pelk {

/// Does both, the first on another thread if one is to be had, and returns when both have ended.
/// What either throws is thrown on.
template <typename First, typename Second>
void sideBySide(const First& first, const Second& second) {
    std::future<void> other =
        std::async(std::launch::async | std::launch::deferred, [&first] { first(); });
    second();
    other.get();
}

}  // namespace pelk
