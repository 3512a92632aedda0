#pragma once
// Connects libetpan's input and output to a `NetworkStream`.

#include <libetpan/libetpan.h>

#include <exception>
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

    ssize_t read(char* bytes, std::size_t length) noexcept;
    ssize_t write(const char* bytes, std::size_t length) noexcept;

 private:
    template <typename Call>
    ssize_t kept(const Call& call) noexcept;

    NetworkStream& network_;
    AnswerGuard guard_;
    std::exception_ptr fault_;
    bool closed_ = false;
};

}  // namespace pelk
