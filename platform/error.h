#pragma once
// The exception for expected failures.

#include <stdexcept>

namespace pelk {

/// An expected failure: a full disk, a damaged file, a mail system that refuses. `what()` is a
/// sentence for the user that says what failed and where. No other exception may leave an entry
/// point.
class Error : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// Shown for `std::bad_alloc`. A literal needs no memory.
inline constexpr const char* kNotEnoughMemory = "There is not enough memory.";

}  // namespace pelk
