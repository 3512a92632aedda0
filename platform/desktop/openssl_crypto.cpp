#include "platform/desktop/openssl_crypto.h"

#include <openssl/crypto.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <new>
#include <utility>

#include "platform/error.h"

namespace pelk {
namespace {

constexpr std::size_t kTagSize = 16;
constexpr std::size_t kDigestSize = 32;

using CipherContext = std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)>;

const unsigned char* bytesOf(std::string_view text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

unsigned char* bytesOf(std::string& text) {
    return reinterpret_cast<unsigned char*>(text.data());
}

/// OpenSSL counts in int; half of its range leaves room for base64, so a file stays readable.
int sizeOf(std::string_view text) {
    if (text.size() > INT_MAX / 2)
        throw Error("The database is too large to be encrypted.");
    return static_cast<int>(text.size());
}

/// Throws an `Error` with the library's reason for its last failure.
[[noreturn]] void fail() {
    std::string reason;
    while (const unsigned long code = ERR_get_error()) {
        if (ERR_GET_REASON(code) == ERR_R_MALLOC_FAILURE)
            throw std::bad_alloc();
        const char* const words = ERR_reason_error_string(code);
        if (words != nullptr && reason.empty())
            reason = std::string(": ") + words;
    }
    throw Error("The system's cryptographic library failed" + reason + ".");
}

void require(bool success) {
    if (!success)
        fail();
}

/// Initializes the library. Without enough memory for that, its next function would use a lock that
/// does not exist.
void requireLibrary() {
    require(OSSL_LIB_CTX_get0_global_default() != nullptr);
}

CipherContext createContext() {
    requireLibrary();
    CipherContext context(EVP_CIPHER_CTX_new(), &EVP_CIPHER_CTX_free);
    require(context != nullptr);
    return context;
}

/// Decodes base64 text of whole groups of four characters. Returns false when the library rejects
/// it.
bool decodeGroups(std::string_view text, char* bytes) {
    const std::size_t size = text.size() / 4 * 3;
    return EVP_DecodeBlock(reinterpret_cast<unsigned char*>(bytes), bytesOf(text), sizeOf(text)) ==
           static_cast<int>(size);
}

}  // namespace

std::string OpensslCrypto::hmacSha256(std::string_view key, std::string_view text) const {
    requireLibrary();
    std::string digest(kDigestSize, '\0');
    unsigned int size = 0;
    require(HMAC(EVP_sha256(), key.data(), static_cast<int>(key.size()), bytesOf(text), text.size(),
                 bytesOf(digest), &size) != nullptr &&
            size == digest.size());
    return digest;
}

std::string OpensslCrypto::seal(std::string_view key, std::string_view nonce,
                                std::string_view header, std::string plain) const {
    const CipherContext context = createContext();
    const int plainSize = sizeOf(plain);
    int size = 0;
    require(EVP_EncryptInit_ex(context.get(), EVP_aes_256_gcm(), nullptr, bytesOf(key),
                               bytesOf(nonce)) == 1);
    require(EVP_EncryptUpdate(context.get(), nullptr, &size, bytesOf(header), sizeOf(header)) == 1);
    require(EVP_EncryptUpdate(context.get(), bytesOf(plain), &size, bytesOf(plain), plainSize) ==
            1);
    plain.resize(plain.size() + kTagSize);
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
    ERR_clear_error();
    if (EVP_DecryptFinal_ex(context.get(), nullptr, &size) == 1)
        return sealed;
    // The library reports no error for a wrong tag.
    if (ERR_peek_error() != 0)
        fail();
    return std::nullopt;
}

std::string OpensslCrypto::base64(std::string_view bytes) const {
    // The library appends a NUL, for which the string has room.
    std::string text((bytes.size() + 2) / 3 * 4, '\0');
    EVP_EncodeBlock(bytesOf(text), bytesOf(bytes), sizeOf(bytes));
    return text;
}

std::optional<std::string> OpensslCrypto::fromBase64(std::string_view text) const {
    std::string bytes(text.size() / 4 * 3, '\0');
    // The library skips white space at both ends.
    if (text.size() % 4 != 0 || !decodeGroups(text, bytes.data()))
        return std::nullopt;
    // The library accepts "=" anywhere, and counts padding as bytes.
    const std::size_t padding = text.ends_with("==") ? 2 : text.ends_with('=') ? 1 : 0;
    bytes.resize(bytes.size() - padding);
    // The last four characters may contain unused bits.
    const std::string_view end = text.substr(text.size() - std::min<std::size_t>(text.size(), 4));
    const std::string_view endBytes =
        std::string_view(bytes).substr((text.size() - end.size()) / 4 * 3);
    if (text.find('=') < text.size() - padding || base64(endBytes) != end)
        return std::nullopt;
    return bytes;
}

}  // namespace pelk
