#pragma once
// The one kind of failure that is expected and told to the user.

#include <stdexcept>

namespace pelk {

/// An expected fault (a full disk, a damaged file, a mail system that refuses). `what()` is a
/// sentence for the user that says what failed and where. Nothing else may leave an entry point.
class Error : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// What the user is told of `std::bad_alloc`. It needs no memory to be shown.
inline constexpr const char* kNotEnoughMemory = "There is not enough memory.";

}  // namespace pelk
