#pragma once
// Connects libetpan's input and output to a `NetworkStream`.

#include <libetpan/libetpan.h>

#include <exception>
#include <string>
#include <utility>

#include "mailstore/imap/answer_guard.h"
#include "mailstore/imap/network_stream.h"

namespace pelk {

/// libetpan is written in C, so no exception may pass through it. This class stores the first fault
/// instead, and all later reads and writes fail.
class GuardedStream {
 public:
    explicit GuardedStream(NetworkStream& network) : network_(network) {}

    /// Returns a stream, which libetpan frees. Requires: this outlives it. Throws `std::bad_alloc`.
    mailstream* open();

    /// Starts to count the size of the next answer. Call it for each command.
    void beginAnswer() { guard_.beginAnswer(); }
    /// Makes all later reads and writes fail.
    void close() noexcept;
    /// Rethrows the stored fault, if there is one.
    void throwFault() const;

    /// Returns how many bytes were read, or -1 after a fault.
    ssize_t read(char* bytes, std::size_t length) noexcept;
    /// Makes the next calls of `read` return bytes that have been read, but belong to a later
    /// answer.
    void giveBack(std::string bytes) { returned_ = std::move(bytes); }
    ssize_t write(const char* bytes, std::size_t length) noexcept;

 private:
    template <typename Call>
    ssize_t kept(const Call& call) noexcept;

    NetworkStream& network_;
    AnswerGuard guard_;
    std::exception_ptr fault_;
    bool closed_ = false;
    std::string returned_;
};

}  // namespace pelk
