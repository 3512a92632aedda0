#include "platform/windows/cng_crypto.h"

#include <windows.h>
// Requires the include above.
#include <bcrypt.h>
#include <wincrypt.h>

#include <climits>
#include <new>

#include "platform/error.h"

namespace pelk {
namespace {

constexpr std::size_t kTagSize = 16;
constexpr std::size_t kDigestSize = 32;
/// STATUS_AUTH_TAG_MISMATCH, whose header cannot be used beside windows.h.
constexpr NTSTATUS kTagMismatch = static_cast<NTSTATUS>(0xC000A002);

/// The library takes its input as non-const pointers but only reads it.
UCHAR* bytesOf(std::string_view text) {
    return reinterpret_cast<UCHAR*>(const_cast<char*>(text.data()));
}

/// The library's lengths have 32 bits, and base64 needs a third more than the bytes.
ULONG sizeOf(std::string_view text) {
    if (text.size() > INT_MAX / 2)
        throw Error("The database is too large to be encrypted.");
    return static_cast<ULONG>(text.size());
}

/// STATUS_NO_MEMORY, whose header cannot be used beside windows.h either.
constexpr NTSTATUS kNoMemory = static_cast<NTSTATUS>(0xC0000017);

void require(bool success) {
    if (!success)
        throw Error("The system's cryptographic library failed.");
}

void require(NTSTATUS status) {
    if (status == kNoMemory)
        throw std::bad_alloc();
    require(status >= 0);
}

/// Whether `base64` could have written the text. Ignores the unused bits at its end.
bool looksLikeBase64(std::string_view text) {
    const std::string_view inner = text.substr(0, text.find_last_not_of('=') + 1);
    return text.size() % 4 == 0 && text.size() - inner.size() <= 2 &&
           inner.find_first_not_of(
               "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
               "+/") == std::string_view::npos;
}

/// Owns an algorithm of the library, and a hash or a key.
class Algorithm {
 public:
    Algorithm(const wchar_t* name, ULONG flags) {
        require(BCryptOpenAlgorithmProvider(&algorithm_, name, nullptr, flags));
    }
    Algorithm(const Algorithm&) = delete;
    Algorithm& operator=(const Algorithm&) = delete;
    ~Algorithm() {
        if (hash_ != nullptr)
            BCryptDestroyHash(hash_);
        if (key_ != nullptr)
            BCryptDestroyKey(key_);
        BCryptCloseAlgorithmProvider(algorithm_, 0);
    }

    BCRYPT_HASH_HANDLE createHash(std::string_view secret) {
        require(
            BCryptCreateHash(algorithm_, &hash_, nullptr, 0, bytesOf(secret), sizeOf(secret), 0));
        return hash_;
    }

    BCRYPT_KEY_HANDLE createGcmKey(std::string_view key) {
        std::wstring mode = BCRYPT_CHAIN_MODE_GCM;
        const auto size = static_cast<ULONG>((mode.size() + 1) * sizeof(wchar_t));
        require(BCryptSetProperty(algorithm_, BCRYPT_CHAINING_MODE,
                                  reinterpret_cast<UCHAR*>(mode.data()), size, 0));
        require(BCryptGenerateSymmetricKey(algorithm_, &key_, nullptr, 0, bytesOf(key), sizeOf(key),
                                           0));
        return key_;
    }

 private:
    BCRYPT_ALG_HANDLE algorithm_ = nullptr;
    BCRYPT_HASH_HANDLE hash_ = nullptr;
    BCRYPT_KEY_HANDLE key_ = nullptr;
};

/// The arguments of a GCM operation beside the text. Encryption writes `tag`, decryption reads it.
BCRYPT_AUTHENTICATED_CIPHER_MODE_INFO modeInfo(std::string_view nonce, std::string_view header,
                                               std::string_view tag) {
    BCRYPT_AUTHENTICATED_CIPHER_MODE_INFO info;
    BCRYPT_INIT_AUTH_MODE_INFO(info);
    info.pbNonce = bytesOf(nonce);
    info.cbNonce = sizeOf(nonce);
    info.pbAuthData = bytesOf(header);
    info.cbAuthData = sizeOf(header);
    info.pbTag = bytesOf(tag);
    info.cbTag = sizeOf(tag);
    return info;
}

}  // namespace

std::string CngCrypto::hmacSha256(std::string_view key, std::string_view text) const {
    Algorithm algorithm(BCRYPT_SHA256_ALGORITHM, BCRYPT_ALG_HANDLE_HMAC_FLAG);
    const BCRYPT_HASH_HANDLE hash = algorithm.createHash(key);
    std::string digest(kDigestSize, '\0');
    require(BCryptHashData(hash, bytesOf(text), sizeOf(text), 0));
    require(BCryptFinishHash(hash, bytesOf(digest), sizeOf(digest), 0));
    return digest;
}

std::string CngCrypto::seal(std::string_view key, std::string_view nonce, std::string_view header,
                            std::string plain) const {
    Algorithm algorithm(BCRYPT_AES_ALGORITHM, 0);
    const BCRYPT_KEY_HANDLE handle = algorithm.createGcmKey(key);
    const ULONG size = sizeOf(plain);
    plain.resize(plain.size() + kTagSize);
    BCRYPT_AUTHENTICATED_CIPHER_MODE_INFO info =
        modeInfo(nonce, header, std::string_view(plain).substr(size));
    ULONG written = 0;
    require(BCryptEncrypt(handle, bytesOf(plain), size, &info, nullptr, 0, bytesOf(plain), size,
                          &written, 0));
    require(written == size);
    return plain;
}

std::optional<std::string> CngCrypto::open(std::string_view key, std::string_view nonce,
                                           std::string_view header, std::string sealed) const {
    if (sealed.size() < kTagSize)
        return std::nullopt;
    const auto size = static_cast<ULONG>(sizeOf(sealed) - kTagSize);
    Algorithm algorithm(BCRYPT_AES_ALGORITHM, 0);
    const BCRYPT_KEY_HANDLE handle = algorithm.createGcmKey(key);
    BCRYPT_AUTHENTICATED_CIPHER_MODE_INFO info =
        modeInfo(nonce, header, std::string_view(sealed).substr(size));
    ULONG written = 0;
    const NTSTATUS status = BCryptDecrypt(handle, bytesOf(sealed), size, &info, nullptr, 0,
                                          bytesOf(sealed), size, &written, 0);
    if (status == kTagMismatch)
        return std::nullopt;
    require(status);
    require(written == size);
    sealed.resize(size);
    return sealed;
}

std::string CngCrypto::base64(std::string_view bytes) const {
    if (bytes.empty())
        return {};
    // The library ends its text with a NUL.
    DWORD size = sizeOf(bytes) / 3 * 4 + 5;
    std::string text(size, '\0');
    require(CryptBinaryToStringA(bytesOf(bytes), sizeOf(bytes),
                                 CRYPT_STRING_BASE64 | CRYPT_STRING_NOCRLF, text.data(),
                                 &size) != FALSE);
    text.resize(size);
    return text;
}

std::optional<std::string> CngCrypto::fromBase64(std::string_view text) const {
    // For a length of 0, the library would read until a NUL.
    if (text.empty())
        return std::string();
    // The library would report this input as a failure of its own.
    if (!looksLikeBase64(text))
        return std::nullopt;
    DWORD size = sizeOf(text);
    std::string bytes(size, '\0');
    require(CryptStringToBinaryA(text.data(), sizeOf(text), CRYPT_STRING_BASE64, bytesOf(bytes),
                                 &size, nullptr, nullptr) != FALSE);
    bytes.resize(size);
    // Versions of the library differ in what they accept.
    if (base64(bytes) != text)
        return std::nullopt;
    return bytes;
}

}  // namespace pelk
