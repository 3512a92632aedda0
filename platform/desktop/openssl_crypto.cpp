#include "platform/desktop/openssl_crypto.h"

#include <openssl/core_names.h>
#include <openssl/crypto.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/params.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <new>
#include <utility>

#include "platform/desktop/hand_over.h"
#include "platform/error.h"
#include "platform/side_by_side.h"

namespace pelk {
namespace {

constexpr std::size_t kTagSize = 16;
constexpr std::size_t kDigestSize = 32;
/// How many bytes are handed over to be hashed.
constexpr std::size_t kBlockSize = 1U << 20U;
/// How many bytes become one piece of base64: few enough for a processor's cache, and a multiple of
/// the three that become whole characters.
constexpr std::size_t kSliceSize = 3 << 18;

using CipherContext = std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)>;

const unsigned char* bytesOf(std::string_view text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

unsigned char* bytesOf(std::string& text) {
    return reinterpret_cast<unsigned char*>(text.data());
}

/// OpenSSL counts in int, and what is written must be readable.
int sizeOf(std::string_view text) {
    if (text.size() > INT_MAX / 2)
        throw Error("The database is too large to be enciphered.");
    return static_cast<int>(text.size());
}

/// Throws what the library says of its last failure.
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

/// Makes the library ready. Where it lacks the memory for that it would use a lock that is not
/// there in whatever it is asked to do next.
void requireLibrary() {
    require(OSSL_LIB_CTX_get0_global_default() != nullptr);
}

class Hmac {
 public:
    explicit Hmac(std::string_view key) : context_(createContext(), &EVP_MAC_CTX_free) {
        char digest[] = "SHA256";
        const OSSL_PARAM parameters[] = {
            OSSL_PARAM_construct_utf8_string(OSSL_MAC_PARAM_DIGEST, digest, 0),
            OSSL_PARAM_construct_end()};
        require(context_ != nullptr &&
                EVP_MAC_init(context_.get(), bytesOf(key), key.size(), parameters) == 1);
    }

    void add(std::string_view text) {
        require(EVP_MAC_update(context_.get(), bytesOf(text), text.size()) == 1);
    }

    std::string digest() {
        std::string digest(kDigestSize, '\0');
        std::size_t size = 0;
        require(EVP_MAC_final(context_.get(), bytesOf(digest), &size, digest.size()) == 1 &&
                size == digest.size());
        return digest;
    }

 private:
    static EVP_MAC_CTX* createContext() {
        requireLibrary();
        const std::unique_ptr<EVP_MAC, decltype(&EVP_MAC_free)> hmac(
            EVP_MAC_fetch(nullptr, OSSL_MAC_NAME_HMAC, nullptr), &EVP_MAC_free);
        return hmac ? EVP_MAC_CTX_new(hmac.get()) : nullptr;
    }

    std::unique_ptr<EVP_MAC_CTX, decltype(&EVP_MAC_CTX_free)> context_;
};

CipherContext createContext() {
    requireLibrary();
    CipherContext context(EVP_CIPHER_CTX_new(), &EVP_CIPHER_CTX_free);
    require(context != nullptr);
    return context;
}

/// A text that is enciphered slice by slice, in its place.
class Sealing {
 public:
    Sealing(std::string_view key, std::string_view nonce, std::string_view header,
            std::string plain)
        : context_(createContext()), plainSize_(sizeOf(plain)), text_(std::move(plain)) {
        text_.resize(plainSize_ + kTagSize);
        int size = 0;
        require(EVP_EncryptInit_ex(context_.get(), EVP_aes_256_gcm(), nullptr, bytesOf(key),
                                   bytesOf(nonce)) == 1);
        require(EVP_EncryptUpdate(context_.get(), nullptr, &size, bytesOf(header),
                                  sizeOf(header)) == 1);
    }

    /// The next slice, enciphered; empty at the end.
    std::string_view nextSlice() {
        const std::string_view slice = std::string_view(text_).substr(done_, kSliceSize);
        encipherUpTo(done_ + slice.size());
        done_ += slice.size();
        return slice;
    }

 private:
    /// The tag behind the text may belong to what ends there.
    void encipherUpTo(std::size_t end) {
        const std::size_t plainEnd = std::min(end, plainSize_);
        if (done_ < plainEnd) {
            unsigned char* const bytes = bytesOf(text_) + done_;
            int size = 0;
            require(EVP_EncryptUpdate(context_.get(), bytes, &size, bytes,
                                      static_cast<int>(plainEnd - done_)) == 1);
        }
        if (end > plainSize_ && done_ <= plainSize_)
            writeTag(bytesOf(text_) + plainSize_);
    }
    void writeTag(unsigned char* tag) {
        int size = 0;
        require(EVP_EncryptFinal_ex(context_.get(), tag, &size) == 1);
        require(EVP_CIPHER_CTX_ctrl(context_.get(), EVP_CTRL_GCM_GET_TAG, kTagSize, tag) == 1);
    }

    CipherContext context_;
    const std::size_t plainSize_;
    /// The text, and the tag behind it.
    std::string text_;
    std::size_t done_ = 0;
};

/// Writes the bytes for base64 text of whole groups of four. Returns false when the library does
/// not read it as that many bytes.
bool decodeGroups(std::string_view text, char* bytes) {
    const std::size_t size = text.size() / 4 * 3;
    return EVP_DecodeBlock(reinterpret_cast<unsigned char*>(bytes), bytesOf(text), sizeOf(text)) ==
           static_cast<int>(size);
}

/// The same, half by half.
bool decode(std::string_view text, char* bytes) {
    const std::size_t groups = text.size() / 8;
    bool firstDecoded = false;
    bool secondDecoded = false;
    sideBySide([&] { firstDecoded = decodeGroups(text.substr(0, groups * 4), bytes); },
               [&] { secondDecoded = decodeGroups(text.substr(groups * 4), bytes + groups * 3); });
    return firstDecoded && secondDecoded;
}

}  // namespace

/// What has come is hashed while more is made.
std::string OpensslCrypto::hmacSha256(std::string_view key, const MakePieces& make) const {
    Hmac hmac(key);
    std::string block;
    HandOver hashing([&hmac](std::string_view full) { hmac.add(full); });
    make([&](std::string_view piece) {
        block += piece;
        if (block.size() < kBlockSize)
            return;
        std::string next;
        next.reserve(block.capacity());
        hashing.add(std::exchange(block, std::move(next)));
    });
    hashing.finish();
    hmac.add(block);
    return hmac.digest();
}

/// What has been enciphered is taken while more is.
void OpensslCrypto::seal(std::string_view key, std::string_view nonce, std::string_view header,
                         std::string plain, const TakePiece& take) const {
    Sealing sealing(key, nonce, header, std::move(plain));
    HandOver taking(take);
    for (std::string_view slice = sealing.nextSlice(); !slice.empty(); slice = sealing.nextSlice())
        taking.add(base64(slice));
    taking.finish();
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
    // The library calls a tag that differs no error of its own.
    if (ERR_peek_error() != 0)
        fail();
    return std::nullopt;
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
    if (text.size() % 4 != 0 || !decode(text, bytes.data()))
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
