#include "platform/desktop/openssl_crypto.h"

#include <openssl/evp.h>
#include <openssl/hmac.h>

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
                                std::string_view header, std::string_view plain) const {
    const CipherContext context = createContext();
    std::string sealed(plain.size() + kTagSize, '\0');
    int size = 0;
    require(EVP_EncryptInit_ex(context.get(), EVP_aes_256_gcm(), nullptr, bytesOf(key),
                               bytesOf(nonce)) == 1);
    require(EVP_EncryptUpdate(context.get(), nullptr, &size, bytesOf(header), sizeOf(header)) == 1);
    require(EVP_EncryptUpdate(context.get(), bytesOf(sealed), &size, bytesOf(plain),
                              sizeOf(plain)) == 1);
    unsigned char* const tag = bytesOf(sealed) + plain.size();
    require(EVP_EncryptFinal_ex(context.get(), tag, &size) == 1);
    require(EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_GCM_GET_TAG, kTagSize, tag) == 1);
    return sealed;
}

std::optional<std::string> OpensslCrypto::open(std::string_view key, std::string_view nonce,
                                               std::string_view header,
                                               std::string_view sealed) const {
    if (sealed.size() < kTagSize)
        return std::nullopt;
    const std::string_view text = sealed.substr(0, sealed.size() - kTagSize);
    std::string tag(sealed.substr(text.size()));
    const CipherContext context = createContext();
    std::string plain(text.size(), '\0');
    int size = 0;
    require(EVP_DecryptInit_ex(context.get(), EVP_aes_256_gcm(), nullptr, bytesOf(key),
                               bytesOf(nonce)) == 1);
    require(EVP_DecryptUpdate(context.get(), nullptr, &size, bytesOf(header), sizeOf(header)) == 1);
    require(EVP_DecryptUpdate(context.get(), bytesOf(plain), &size, bytesOf(text), sizeOf(text)) ==
            1);
    require(EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_GCM_SET_TAG, kTagSize, tag.data()) == 1);
    if (EVP_DecryptFinal_ex(context.get(), nullptr, &size) != 1)
        return std::nullopt;
    return plain;
}

std::string OpensslCrypto::base64(std::string_view bytes) const {
    // The library ends its text with a NUL, for which the string has room anyway.
    std::string text((bytes.size() + 2) / 3 * 4, '\0');
    EVP_EncodeBlock(bytesOf(text), bytesOf(bytes), sizeOf(bytes));
    return text;
}

std::string OpensslCrypto::fromBase64(std::string_view text) const {
    if (text.size() % 4 != 0)
        return {};
    std::string bytes(text.size() / 4 * 3, '\0');
    const int size = EVP_DecodeBlock(bytesOf(bytes), bytesOf(text), sizeOf(text));
    if (size < 0)
        return {};
    // The library counts the padding as bytes.
    const std::size_t padding = text.ends_with("==") ? 2 : text.ends_with('=') ? 1 : 0;
    bytes.resize(static_cast<std::size_t>(size) - padding);
    return bytes;
}

}  // namespace pelk
