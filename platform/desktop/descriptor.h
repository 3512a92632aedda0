#pragma once
// Open files and folders, and what is said when the system refuses one.

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <utility>

#include "platform/desktop/uninterrupted.h"
#include "platform/error.h"

namespace pelk {

/// Throws `Error`: the path cannot be `what` ("opened", "read"), for the reason in `errno`.
[[noreturn]] inline void failToBe(const std::string& path, const std::string& what) {
    throw Error(path + " cannot be " + what + ": " + std::strerror(errno) + ".");
}

/// An open file or folder, closed at the end; none when its number is negative.
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

/// Opens a path; on failure the descriptor is none, and `errno` tells why.
inline Descriptor openFile(const std::string& path, int flags, mode_t mode = 0) {
    return Descriptor(uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }));
}

}  // namespace pelk
