#include "platform/desktop/openssl_crypto.h"

#include <openssl/evp.h>
#include <openssl/hmac.h>

#include <algorithm>
#include <climits>
#include <memory>

#include "platform/error.h"

namespace pelk {
namespace {

constexpr std::size_t kTagSize = 16;

using CipherContext = std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)>;

const unsigned char* bytesOf(std::string_view text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

unsigned char* bytesOf(std::string& text) {
    return reinterpret_cast<unsigned char*>(text.data());
}

/// OpenSSL counts in int.
int sizeOf(std::string_view text) {
    if (text.size() > INT_MAX / 2)
        throw Error("The database is too large to be enciphered.");
    return static_cast<int>(text.size());
}

void require(bool success) {
    if (!success)
        throw Error("The system's cryptographic library failed.");
}

CipherContext createContext() {
    CipherContext context(EVP_CIPHER_CTX_new(), &EVP_CIPHER_CTX_free);
    require(context != nullptr);
    return context;
}

}  // namespace

std::string OpensslCrypto::hmacSha256(std::string_view key, std::string_view data) const {
    std::string digest(EVP_MAX_MD_SIZE, '\0');
    unsigned int size = 0;
    require(HMAC(EVP_sha256(), key.data(), sizeOf(key), bytesOf(data), data.size(), bytesOf(digest),
                 &size) != nullptr);
    digest.resize(size);
    return digest;
}

std::string OpensslCrypto::seal(std::string_view key, std::string_view nonce,
                                std::string_view header, std::string plain) const {
    const CipherContext context = createContext();
    const int plainSize = sizeOf(plain);
    plain.resize(plain.size() + kTagSize);
    int size = 0;
    require(EVP_EncryptInit_ex(context.get(), EVP_aes_256_gcm(), nullptr, bytesOf(key),
                               bytesOf(nonce)) == 1);
    require(EVP_EncryptUpdate(context.get(), nullptr, &size, bytesOf(header), sizeOf(header)) == 1);
    require(EVP_EncryptUpdate(context.get(), bytesOf(plain), &size, bytesOf(plain), plainSize) ==
            1);
    unsigned char* const tag = bytesOf(plain) + plainSize;
    require(EVP_EncryptFinal_ex(context.get(), tag, &size) == 1);
    require(EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_GCM_GET_TAG, kTagSize, tag) == 1);
    return plain;
}

std::optional<std::string> OpensslCrypto::open(std::string_view key, std::string_view nonce,
                                               std::string_view header, std::string sealed) const {
    if (sealed.size() < kTagSize)
        return std::nullopt;
    const CipherContext context = createContext();
    std::string tag = sealed.substr(sealed.size() - kTagSize);
    sealed.resize(sealed.size() - kTagSize);
    int size = 0;
    require(EVP_DecryptInit_ex(context.get(), EVP_aes_256_gcm(), nullptr, bytesOf(key),
                               bytesOf(nonce)) == 1);
    require(EVP_DecryptUpdate(context.get(), nullptr, &size, bytesOf(header), sizeOf(header)) == 1);
    require(EVP_DecryptUpdate(context.get(), bytesOf(sealed), &size, bytesOf(sealed),
                              sizeOf(sealed)) == 1);
    require(EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_GCM_SET_TAG, kTagSize, tag.data()) == 1);
    if (EVP_DecryptFinal_ex(context.get(), nullptr, &size) != 1)
        return std::nullopt;
    return sealed;
}

std::string OpensslCrypto::base64(std::string_view bytes) const {
    // The library ends its text with a NUL, for which the string has room anyway.
    std::string text((bytes.size() + 2) / 3 * 4, '\0');
    EVP_EncodeBlock(bytesOf(text), bytesOf(bytes), sizeOf(bytes));
    return text;
}

std::optional<std::string> OpensslCrypto::fromBase64(std::string_view text) const {
    std::string bytes(text.size() / 4 * 3, '\0');
    // The library passes over blanks at either end.
    if (text.size() % 4 != 0 ||
        EVP_DecodeBlock(bytesOf(bytes), bytesOf(text), sizeOf(text)) != sizeOf(bytes))
        return std::nullopt;
    // It reads "=" anywhere as no bits, and counts padding as bytes.
    const std::size_t padding = text.ends_with("==") ? 2 : text.ends_with('=') ? 1 : 0;
    bytes.resize(bytes.size() - padding);
    // The last four characters may carry bits that belong to no byte.
    const std::string_view end = text.substr(text.size() - std::min<std::size_t>(text.size(), 4));
    const std::string_view endBytes =
        std::string_view(bytes).substr((text.size() - end.size()) / 4 * 3);
    if (text.find('=') < text.size() - padding || base64(endBytes) != end)
        return std::nullopt;
    return bytes;
}

}  // namespace pelk
