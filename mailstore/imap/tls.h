#pragma once
// TLS on a socket, by OpenSSL. Checks the server's certificate and name.

#include <sys/types.h>

#include <cstddef>
#include <memory>
#include <string>

struct ssl_st;
struct ssl_ctx_st;

namespace pelk {

/// The functions return the same as those of a non-blocking socket: a number of bytes, or -1 with
/// `errno`, which is EAGAIN if the caller must wait for the socket.
class TlsLayer {
 public:
    /// Requires: `socket` outlives this. Throws `Error` if OpenSSL fails.
    TlsLayer(int socket, const std::string& host);
    ~TlsLayer();
    TlsLayer(const TlsLayer&) = delete;
    TlsLayer& operator=(const TlsLayer&) = delete;

    /// Returns 1 on completion. Throws `Error` if the server does not prove its identity.
    ssize_t shakeHands();
    ssize_t read(char* bytes, std::size_t length);
    ssize_t write(const char* bytes, std::size_t length);
    /// Returns whether the caller must wait until the socket is writable rather than readable.
    bool wantsToWrite() const;

 private:
    void require(bool done) const;
    ssize_t outcome(int result);
    [[noreturn]] void failHandshake() const;

    struct Free {
        void operator()(ssl_st* tls) const;
        void operator()(ssl_ctx_st* context) const;
    };

    const std::string host_;
    std::unique_ptr<ssl_ctx_st, Free> context_;
    std::unique_ptr<ssl_st, Free> tls_;
};

}  // namespace pelk
