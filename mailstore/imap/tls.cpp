#include "mailstore/imap/tls.h"

#include <arpa/inet.h>
#include <openssl/err.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>

#include "mailstore/imap/imap_faults.h"

namespace pelk {
namespace {

/// Replaces OpenSSL's own function, which lets SIGPIPE end the program if the other end is gone.
/// Only this connection should fail then.
int writeToSocket(BIO* bio, const char* bytes, int length) {
    BIO_clear_retry_flags(bio);
    const auto written = ::send(static_cast<int>(BIO_get_fd(bio, nullptr)), bytes,
                                static_cast<std::size_t>(length), MSG_NOSIGNAL);
    if (written < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR))
        BIO_set_retry_write(bio);
    return static_cast<int>(written);
}

const BIO_METHOD* socketMethod() {
    static const BIO_METHOD* const method = [] {
        const BIO_METHOD* const usual = BIO_s_socket();
        BIO_METHOD* const own = BIO_meth_new(BIO_TYPE_SOCKET, "socket without signals");
        if (own != nullptr) {
            BIO_meth_set_write(own, writeToSocket);
            BIO_meth_set_read(own, BIO_meth_get_read(usual));
            BIO_meth_set_ctrl(own, BIO_meth_get_ctrl(usual));
            BIO_meth_set_create(own, BIO_meth_get_create(usual));
            BIO_meth_set_destroy(own, BIO_meth_get_destroy(usual));
        }
        return own;
    }();
    return method;
}

bool isNumeric(const std::string& host) {
    std::array<unsigned char, sizeof(in6_addr)> address{};
    return ::inet_pton(AF_INET, host.c_str(), address.data()) == 1 ||
           ::inet_pton(AF_INET6, host.c_str(), address.data()) == 1;
}

}  // namespace

void TlsLayer::Free::operator()(ssl_st* tls) const {
    SSL_free(tls);
}

void TlsLayer::Free::operator()(ssl_ctx_st* context) const {
    SSL_CTX_free(context);
}

TlsLayer::TlsLayer(int socket, const std::string& host)
    : host_(host), context_(SSL_CTX_new(TLS_client_method())) {
    require(context_ && SSL_CTX_set_min_proto_version(context_.get(), TLS1_2_VERSION) == 1 &&
            SSL_CTX_set_default_verify_paths(context_.get()) == 1);
    SSL_CTX_set_verify(context_.get(), SSL_VERIFY_PEER, nullptr);
    SSL_CTX_set_mode(context_.get(),
                     SSL_MODE_ENABLE_PARTIAL_WRITE | SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER);
    tls_.reset(SSL_new(context_.get()));
    require(tls_ != nullptr);
    if (isNumeric(host)) {
        require(X509_VERIFY_PARAM_set1_ip_asc(SSL_get0_param(tls_.get()), host.c_str()) == 1);
    } else {
        require(SSL_set1_host(tls_.get(), host.c_str()) == 1 &&
                SSL_set_tlsext_host_name(tls_.get(), host.c_str()) == 1);
    }
    BIO* const bio = BIO_new(socketMethod());
    require(bio != nullptr);
    BIO_set_fd(bio, socket, BIO_NOCLOSE);
    SSL_set_bio(tls_.get(), bio, bio);
}

TlsLayer::~TlsLayer() = default;

ssize_t TlsLayer::shakeHands() {
    ERR_clear_error();
    const ssize_t result = outcome(SSL_connect(tls_.get()));
    if (result <= 0 && errno != EAGAIN)
        failHandshake();
    return result;
}

ssize_t TlsLayer::read(char* bytes, std::size_t length) {
    ERR_clear_error();
    return outcome(SSL_read(tls_.get(), bytes, static_cast<int>(length)));
}

ssize_t TlsLayer::write(const char* bytes, std::size_t length) {
    ERR_clear_error();
    return outcome(SSL_write(tls_.get(), bytes, static_cast<int>(length)));
}

bool TlsLayer::wantsToWrite() const {
    return SSL_want_write(tls_.get());
}

ssize_t TlsLayer::outcome(int result) {
    if (result > 0)
        return result;
    switch (SSL_get_error(tls_.get(), result)) {
        case SSL_ERROR_WANT_READ:
        case SSL_ERROR_WANT_WRITE:
            errno = EAGAIN;
            return -1;
        case SSL_ERROR_ZERO_RETURN:
            return 0;
        default:
            errno = ECONNRESET;
            return -1;
    }
}

void TlsLayer::require(bool done) const {
    if (!done)
        throw Error("The connection to the mail server " + host_ + " cannot be encrypted.");
}

void TlsLayer::failHandshake() const {
    const long verdict = SSL_get_verify_result(tls_.get());
    if (verdict != X509_V_OK)
        throw Error("The mail server " + host_ +
                    " does not prove who it is: " + X509_verify_cert_error_string(verdict) + ".");
    const unsigned long fault = ERR_peek_error();
    const char* const reason = fault == 0 ? nullptr : ERR_reason_error_string(fault);
    const std::string text =
        "The connection to the mail server " + host_ +
        " cannot be encrypted: " + (reason == nullptr ? "it was closed" : reason) + ".";
    if (reason == nullptr)
        throw ConnectionLost(text);
    throw Error(text);
}

}  // namespace pelk
