#include "platform/desktop/openssl_hmac.h"

#include <openssl/core_names.h>
#include <openssl/params.h>

#include <utility>

#include "platform/desktop/openssl_bytes.h"

namespace pelk {
namespace {

constexpr std::size_t kBlockSize = 1U << 20U;
constexpr std::size_t kDigestSize = 32;

EVP_MAC_CTX* createContext() {
    const std::unique_ptr<EVP_MAC, decltype(&EVP_MAC_free)> hmac(
        EVP_MAC_fetch(nullptr, OSSL_MAC_NAME_HMAC, nullptr), &EVP_MAC_free);
    return hmac ? EVP_MAC_CTX_new(hmac.get()) : nullptr;
}

}  // namespace

OpensslHmac::OpensslHmac(std::string_view key) : context_(createContext(), &EVP_MAC_CTX_free) {
    char digest[] = "SHA256";
    const OSSL_PARAM parameters[] = {
        OSSL_PARAM_construct_utf8_string(OSSL_MAC_PARAM_DIGEST, digest, 0),
        OSSL_PARAM_construct_end()};
    requireCrypto(context_ != nullptr &&
                  EVP_MAC_init(context_.get(), bytesOf(key), key.size(), parameters) == 1);
}

void OpensslHmac::add(std::string_view piece) {
    block_ += piece;
    if (block_.size() < kBlockSize)
        return;
    std::string emptied = awaitBlock();
    hashing_ = std::async(std::launch::async | std::launch::deferred,
                          [this, block = std::move(block_)]() mutable {
                              hash(block);
                              block.clear();
                              return std::move(block);
                          });
    block_ = std::move(emptied);
}

std::string OpensslHmac::digest() {
    awaitBlock();
    hash(block_);
    std::string digest(kDigestSize, '\0');
    std::size_t size = 0;
    requireCrypto(EVP_MAC_final(context_.get(), bytesOf(digest), &size, digest.size()) == 1 &&
                  size == kDigestSize);
    return digest;
}

void OpensslHmac::hash(std::string_view text) {
    requireCrypto(EVP_MAC_update(context_.get(), bytesOf(text), text.size()) == 1);
}

/// The block that was being hashed, emptied; a new one when there was none.
std::string OpensslHmac::awaitBlock() {
    return hashing_.valid() ? hashing_.get() : std::string();
}

}  // namespace pelk
