#pragma once
// HMAC-SHA256 of a text that comes in pieces.

#include <openssl/evp.h>

#include <future>
#include <memory>
#include <string>
#include <string_view>

namespace pelk {

/// Hashes on another thread, if one is to be had, while further pieces come. Throws `Error` when
/// the library fails.
class OpensslHmac {
 public:
    explicit OpensslHmac(std::string_view key);

    void add(std::string_view piece);
    /// The 32 bytes for all pieces. To be called once.
    std::string digest();

 private:
    void hash(std::string_view text);
    std::string awaitBlock();

    std::unique_ptr<EVP_MAC_CTX, decltype(&EVP_MAC_CTX_free)> context_;
    /// What is not being hashed yet.
    std::string block_;
    /// Gives the block back, empty, once it has been hashed.
    std::future<std::string> hashing_;
};

}  // namespace pelk
