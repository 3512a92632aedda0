#pragma once
// Sockets on this computer, for servers inside a test.

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

namespace pelk {

/// Closes the socket on destruction.
class Socket {
 public:
    explicit Socket(int descriptor) : descriptor_(descriptor) {}
    Socket(Socket&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    ~Socket() { ::close(descriptor_); }
    int get() const { return descriptor_; }

    bool send(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t sent = ::send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
            if (sent <= 0)
                return false;
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        }
        return true;
    }
    /// Returns the next bytes; empty at the end.
    std::string receive() const {
        std::string bytes(1UL << 16, '\0');
        const ssize_t count = ::recv(descriptor_, bytes.data(), bytes.size(), 0);
        bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        return bytes;
    }

 private:
    int descriptor_;
};

inline sockaddr_in loopback(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

/// Listens on a free port; returns the socket and the port.
inline std::pair<int, std::uint16_t> listenAnywhere() {
    const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = loopback(0);
    socklen_t size = sizeof address;
    auto* const plain = reinterpret_cast<sockaddr*>(&address);
    ::bind(listener, plain, size);
    ::listen(listener, 16);
    ::getsockname(listener, plain, &size);
    return {listener, ntohs(address.sin_port)};
}

inline std::uint16_t freePort() {
    const auto [listener, port] = listenAnywhere();
    ::close(listener);
    return port;
}

/// Returns -1 if nobody listens.
inline int connectTo(std::uint16_t port) {
    const int descriptor = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = loopback(port);
    if (::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        return descriptor;
    ::close(descriptor);
    return -1;
}

/// Serves one connection after the other on a separate thread.
class LoopbackServer {
 public:
    using Serve = std::function<void(const Socket& client)>;

    explicit LoopbackServer(Serve serve) : LoopbackServer(listenAnywhere(), std::move(serve)) {}
    ~LoopbackServer() {
        ended_ = true;
        ::shutdown(listener_.get(), SHUT_RDWR);
        if (const int client = client_; client >= 0)
            ::shutdown(client, SHUT_RDWR);
        thread_.join();
    }

    std::uint16_t port() const { return port_; }
    int connections() const { return connections_; }

 private:
    LoopbackServer(std::pair<int, std::uint16_t> listening, Serve serve)
        : listener_(listening.first),
          port_(listening.second),
          thread_([this, serve = std::move(serve)] { run(serve); }) {}

    void run(const Serve& serve) {
        while (!ended_) {
            const Socket client(::accept(listener_.get(), nullptr, nullptr));
            if (client.get() < 0)
                return;
            ++connections_;
            client_ = client.get();
            serve(client);
            client_ = -1;
        }
    }

    const Socket listener_;
    const std::uint16_t port_;
    std::atomic<bool> ended_ = false;
    std::atomic<int> client_ = -1;
    std::atomic<int> connections_ = 0;
    std::thread thread_;
};

}  // namespace pelk
