#pragma once
// Owns a file descriptor, and reports a failed system call.

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <utility>

#include "platform/desktop/uninterrupted.h"
#include "platform/error.h"

namespace pelk {

/// Throws an `Error` that says the path cannot be `what` ("opened", "read"), with the reason from
/// `errno`.
[[noreturn]] inline void failToBe(const std::string& path, const std::string& what) {
    throw Error(path + " cannot be " + what + ": " + std::strerror(errno) + ".");
}

/// Owns a file descriptor and closes it. A negative number means none.
class Descriptor {
 public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(other.release()) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }
    int get() const { return number_; }
    int release() { return std::exchange(number_, -1); }

 private:
    int number_;
};

/// Opens a path. On failure the descriptor is negative and `errno` says why.
inline Descriptor openFile(const std::string& path, int flags, mode_t mode = 0) {
    return Descriptor(uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }));
}

}  // namespace pelk
