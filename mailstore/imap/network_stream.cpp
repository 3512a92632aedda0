#include "mailstore/imap/network_stream.h"

#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <future>
#include <system_error>
#include <thread>
#include <utility>

#include "mailstore/imap/imap_faults.h"
#include "mailstore/imap/tls.h"

namespace pelk {
namespace {

std::string reasonOf(int number) {
    return std::generic_category().message(number);
}

struct AddressesFree {
    void operator()(addrinfo* list) const { ::freeaddrinfo(list); }
};
using Addresses = std::unique_ptr<addrinfo, AddressesFree>;

struct Found {
    int fault = 0;
    Addresses list;
};

Found lookUp(const std::string& host, std::uint16_t port) {
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* list = nullptr;
    const int fault = ::getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &list);
    return {fault, Addresses(list)};
}

/// Nothing can interrupt a look-up, so after a wait that is too long, its thread is left alone.
Addresses lookUp(const std::string& host, std::uint16_t port, const Patience& patience) {
    auto task =
        std::make_shared<std::packaged_task<Found()>>([host, port] { return lookUp(host, port); });
    std::future<Found> coming = task->get_future();
    try {
        std::thread([task] { (*task)(); }).detach();
    } catch (const std::system_error&) {
        (*task)();
    }
    const Wait wait(patience);
    while (coming.wait_for(Wait::kStep) != std::future_status::ready) {
        wait.requireGoingOn();
        if (wait.isOver())
            throw ConnectionLost("The mail server " + host + " cannot be found: no answer for " +
                                 std::to_string(patience.limit.count()) + " seconds.");
    }
    Found found = coming.get();
    if (found.fault != 0)
        throw ConnectionLost("The mail server " + host +
                             " cannot be found: " + ::gai_strerror(found.fault) + ".");
    return std::move(found.list);
}

}  // namespace

NetworkStream::NetworkStream(const std::string& host, std::uint16_t port, const Patience& patience)
    : host_(host), patience_(patience) {
    try {
        connect(port);
    } catch (...) {
        if (socket_ >= 0)
            ::close(socket_);
        throw;
    }
}

NetworkStream::~NetworkStream() {
    tls_.reset();
    ::close(socket_);
}

void NetworkStream::connect(std::uint16_t port) {
    const Addresses list = lookUp(host_, port, patience_);
    int reason = ECONNREFUSED;
    for (const addrinfo* address = list.get(); address != nullptr; address = address->ai_next)
        if (tryAddress(*address, reason))
            return;
    throw ConnectionLost("The mail server " + host_ + " cannot be reached at port " +
                         std::to_string(port) + ": " + reasonOf(reason) + ".");
}

bool NetworkStream::tryAddress(const addrinfo& address, int& reason) {
    if (socket_ >= 0)
        ::close(socket_);
    socket_ = ::socket(address.ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (socket_ < 0) {
        reason = errno;
        return false;
    }
    reason = ::connect(socket_, address.ai_addr, address.ai_addrlen) == 0 ? 0 : errno;
    if (reason == EINPROGRESS) {
        await(POLLOUT);
        socklen_t size = sizeof reason;
        ::getsockopt(socket_, SOL_SOCKET, SO_ERROR, &reason, &size);
    }
    const int atOnce = 1;
    ::setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &atOnce, sizeof atOnce);
    return reason == 0;
}

bool NetworkStream::reachesLoopback() const {
    sockaddr_storage peer{};
    socklen_t size = sizeof peer;
    if (::getpeername(socket_, reinterpret_cast<sockaddr*>(&peer), &size) != 0)
        return false;
    if (peer.ss_family == AF_INET)
        return ntohl(reinterpret_cast<sockaddr_in&>(peer).sin_addr.s_addr) >> 24 == 127;
    return peer.ss_family == AF_INET6 &&
           IN6_IS_ADDR_LOOPBACK(&reinterpret_cast<sockaddr_in6&>(peer).sin6_addr);
}

void NetworkStream::startTls() {
    tls_ = std::make_unique<TlsLayer>(socket_, host_);
    repeat(POLLIN, [this] { return tls_->shakeHands(); });
}

std::size_t NetworkStream::read(char* bytes, std::size_t length) {
    return repeat(POLLIN, [&] {
        return tls_ ? tls_->read(bytes, length) : ::recv(socket_, bytes, length, 0);
    });
}

void NetworkStream::write(const char* bytes, std::size_t length) {
    while (length > 0) {
        const std::size_t written = repeat(POLLOUT, [&] {
            return tls_ ? tls_->write(bytes, length) : ::send(socket_, bytes, length, MSG_NOSIGNAL);
        });
        bytes += written;
        length -= written;
    }
}

template <typename Call>
std::size_t NetworkStream::repeat(short events, const Call& call) {
    for (;;) {
        errno = 0;
        const ssize_t result = call();
        if (result > 0)
            return static_cast<std::size_t>(result);
        if (result == 0 || (errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR))
            failLost(result == 0 ? 0 : errno);
        if (errno != EINTR)
            await(tls_ && tls_->wantsToWrite() ? static_cast<short>(POLLOUT) : events);
    }
}

void NetworkStream::await(short events) {
    const Wait wait(patience_);
    for (;;) {
        pollfd wanted{socket_, events, 0};
        const int ready = ::poll(&wanted, 1, static_cast<int>(Wait::kStep.count()));
        if (ready > 0)
            return;
        if (ready < 0 && errno != EINTR)
            failLost(errno);
        wait.requireGoingOn();
        if (wait.isOver())
            throw ConnectionLost("The mail server " + host_ + " has not answered for " +
                                 std::to_string(patience_.limit.count()) + " seconds.");
    }
}

void NetworkStream::failLost(int reason) const {
    throw ConnectionLost("The connection to the mail server " + host_ + " was lost" +
                         (reason == 0 ? "." : ": " + reasonOf(reason) + "."));
}

}  // namespace pelk
