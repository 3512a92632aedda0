#include "mailstore/imap/guarded_stream.h"

#include <cstdlib>
#include <new>

namespace pelk {
namespace {

constexpr std::size_t kBufferSize = 16UL << 10;

GuardedStream& streamOf(mailstream_low* low) {
    return *static_cast<GuardedStream*>(low->data);
}

mailstream_low_driver& driver() {
    static mailstream_low_driver functions = [] {
        mailstream_low_driver made{};
        made.mailstream_read = [](mailstream_low* low, void* bytes, std::size_t length) {
            return streamOf(low).read(static_cast<char*>(bytes), length);
        };
        made.mailstream_write = [](mailstream_low* low, const void* bytes, std::size_t length) {
            return streamOf(low).write(static_cast<const char*>(bytes), length);
        };
        made.mailstream_close = [](mailstream_low*) { return 0; };
        made.mailstream_get_fd = [](mailstream_low*) { return -1; };
        made.mailstream_free = [](mailstream_low* low) { std::free(low); };
        made.mailstream_cancel = [](mailstream_low*) {};
        made.mailstream_get_cancel = [](mailstream_low*) -> struct mailstream_cancel* {
            return nullptr;
        };
        made.mailstream_get_certificate_chain = [](mailstream_low*) -> carray* { return nullptr; };
        return made;
    }();
    return functions;
}

}  // namespace

mailstream* GuardedStream::open() {
    mailstream_low* const low = mailstream_low_new(this, &driver());
    mailstream* const stream = low == nullptr ? nullptr : mailstream_new(low, kBufferSize);
    if (stream == nullptr) {
        std::free(low);
        throw std::bad_alloc();
    }
    return stream;
}

void GuardedStream::close() noexcept {
    closed_ = true;
}

void GuardedStream::throwFault() const {
    if (fault_)
        std::rethrow_exception(fault_);
}

template <typename Call>
ssize_t GuardedStream::kept(const Call& call) noexcept {
    if (closed_)
        return -1;
    try {
        return static_cast<ssize_t>(call());
    } catch (...) {
        fault_ = std::current_exception();
        closed_ = true;
        return -1;
    }
}

ssize_t GuardedStream::read(char* bytes, std::size_t length) noexcept {
    return kept([&] {
        if (!returned_.empty()) {
            const std::size_t count = returned_.copy(bytes, length);
            returned_.erase(0, count);
            return count;
        }
        const std::size_t count = network_.read(bytes, length);
        guard_.take({bytes, count});
        return count;
    });
}

ssize_t GuardedStream::write(const char* bytes, std::size_t length) noexcept {
    return kept([&] {
        network_.write(bytes, length);
        return length;
    });
}

}  // namespace pelk
