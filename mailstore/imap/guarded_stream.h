#pragma once
// A connection as libetpan reads and writes it.

#include <libetpan/libetpan.h>

#include <exception>
#include <utility>

#include "mailstore/imap/answer_guard.h"
#include "mailstore/imap/network_stream.h"

namespace pelk {

/// Nothing is thrown through libetpan, which is written in C: the first fault is kept, and from
/// then on nothing can be read or written.
class GuardedStream {
 public:
    explicit GuardedStream(NetworkStream& network) : network_(network) {}

    /// A stream for libetpan, which frees it. This must outlive it. Fails with `std::bad_alloc`.
    mailstream* open();

    /// Begins the answer to a command.
    void beginAnswer() { guard_.beginAnswer(); }
    /// Ends all reading and writing.
    void close() noexcept;
    /// Fails as the first read or write that failed did, if one has.
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
