#pragma once
// A TCP connection to a server, with or without encryption.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "mailstore/imap/patience.h"

struct addrinfo;

namespace pelk {

class TlsLayer;

/// Every function throws `ConnectionLost` if the connection breaks or transfers nothing for too
/// long, `Cancelled` if the user ends a wait, and `Error` if encryption fails. Only one thread at a
/// time may call.
class NetworkStream {
 public:
    NetworkStream(const std::string& host, std::uint16_t port, const Patience& patience);
    ~NetworkStream();
    NetworkStream(const NetworkStream&) = delete;
    NetworkStream& operator=(const NetworkStream&) = delete;

    /// Encrypts all further data. The server must prove that it is the host, by a certificate that
    /// the system or the file in SSL_CERT_FILE trusts.
    void startTls();
    bool isEncrypted() const { return tls_ != nullptr; }
    /// Returns whether the other end is this computer.
    bool reachesLoopback() const;

    /// Reads at least one byte and returns the number of bytes read.
    std::size_t read(char* bytes, std::size_t length);
    /// Writes all bytes.
    void write(const char* bytes, std::size_t length);

 private:
    void connect(std::uint16_t port);
    bool tryAddress(const addrinfo& address, int& reason);
    void await(short events);
    /// Repeats a non-blocking call until it transfers bytes, and returns their number.
    template <typename Call>
    std::size_t repeat(short events, const Call& call);
    [[noreturn]] void failLost(int reason) const;

    const std::string host_;
    const Patience patience_;
    int socket_ = -1;
    std::unique_ptr<TlsLayer> tls_;
};

}  // namespace pelk
