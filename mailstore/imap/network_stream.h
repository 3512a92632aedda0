#pragma once
// A connection to a server, plain or enciphered.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

struct addrinfo;

namespace pelk {

class TlsLayer;

/// Every function fails with `ConnectionLost` when the connection breaks, or nothing comes or goes
/// within `limit`; with an `Error` when it must not go on.
class NetworkStream {
 public:
    NetworkStream(const std::string& host, std::uint16_t port, std::chrono::seconds limit);
    ~NetworkStream();
    NetworkStream(const NetworkStream&) = delete;
    NetworkStream& operator=(const NetworkStream&) = delete;

    /// Enciphers the connection from here on. The server must prove by a certificate that the
    /// system trusts, or one in the file that SSL_CERT_FILE names, that it is the host.
    void startTls();
    bool isEnciphered() const { return tls_ != nullptr; }
    /// Whether the other end is this very machine.
    bool reachesLoopback() const;

    /// Reads at least one byte and returns how many.
    std::size_t read(char* bytes, std::size_t length);
    /// Writes all of them.
    void write(const char* bytes, std::size_t length);

 private:
    void connect(std::uint16_t port);
    bool tryAddress(const addrinfo& address, int& reason);
    void await(short events);
    /// Repeats a call that returns bytes or an error until it has done something.
    template <typename Call>
    std::size_t repeat(short events, const Call& call);
    [[noreturn]] void failLost(int reason) const;

    const std::string host_;
    const std::chrono::seconds limit_;
    int socket_ = -1;
    std::unique_ptr<TlsLayer> tls_;
};

}  // namespace pelk
