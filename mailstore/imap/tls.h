#pragma once
// TLS on a socket, by OpenSSL, with the server's certificate and name checked.

#include <sys/types.h>

#include <cstddef>
#include <memory>
#include <string>

struct ssl_st;
struct ssl_ctx_st;

namespace pelk {

/// The functions return like those of a socket that does not wait: a number of bytes, or -1 with
/// `errno`, which is EAGAIN when the socket has to be waited for.
class TlsLayer {
 public:
    /// Requires: `socket` outlives this. Fails with an `Error`.
    TlsLayer(int socket, const std::string& host);
    ~TlsLayer();
    TlsLayer(const TlsLayer&) = delete;
    TlsLayer& operator=(const TlsLayer&) = delete;

    /// Returns 1 when it is done. Fails with an `Error` when the server does not prove who it is.
    ssize_t shakeHands();
    ssize_t read(char* bytes, std::size_t length);
    ssize_t write(const char* bytes, std::size_t length);
    /// Whether it is for writing that the socket has to be waited for.
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
