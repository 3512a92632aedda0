#include "db/database_cipher.h"

#include <cstddef>
#include <optional>
#include <utility>

#include "platform/error.h"

namespace pelk {
namespace {

/// Stands before the base64 text and is authenticated with it.
constexpr std::string_view kVersion = "PELK1:";
constexpr std::size_t kNonceSize = 12;
constexpr std::size_t kEncodedNonceSize = kNonceSize / 3 * 4;
/// How many bytes become one piece of cipher text: few enough for a processor's cache.
constexpr std::size_t kSliceSize = 192 * 1024;
// What is made of three bytes each can be put together to what would be made of all at once.
static_assert(kNonceSize % 3 == 0 && kSliceSize % 3 == 0);

}  // namespace

void DatabaseCipher::setKey(std::string_view key) {
    sealingKey_ = crypto_.hmacSha256(key, "pelk database sealing key");
    nonceKey_ = crypto_.hmacSha256(key, "pelk database nonce key");
}

void DatabaseCipher::encipher(std::string plainText,
                              const std::function<void(std::string_view)>& take) const {
    const std::string nonce = nonceOf(plainText);
    const std::string sealed = crypto_.seal(sealingKey_, nonce, kVersion, std::move(plainText));
    take(std::string(kVersion) + crypto_.base64(nonce));
    for (std::string_view rest = sealed; !rest.empty();) {
        const std::string_view slice = rest.substr(0, kSliceSize);
        take(crypto_.base64(slice));
        rest.remove_prefix(slice.size());
    }
}

std::string DatabaseCipher::decipher(std::string_view cipherText) const {
    while (cipherText.ends_with('\n') || cipherText.ends_with('\r'))
        cipherText.remove_suffix(1);
    if (!cipherText.starts_with(kVersion))
        throw Error("It does not begin as a database file does.");
    const std::string_view encoded = cipherText.substr(kVersion.size());
    const std::string_view encodedNonce = encoded.substr(0, kEncodedNonceSize);
    const auto nonce = crypto_.fromBase64(encodedNonce);
    auto sealed = crypto_.fromBase64(encoded.substr(encodedNonce.size()));
    if (!nonce || nonce->size() != kNonceSize || !sealed)
        throw Error("It is cut short or damaged.");
    auto plain = crypto_.open(sealingKey_, *nonce, kVersion, std::move(*sealed));
    if (!plain)
        throw Error("It is damaged, or was made with another key.");
    return std::move(*plain);
}

/// Derived from the text, so that equal texts give equal files and different ones never share a
/// nonce.
std::string DatabaseCipher::nonceOf(std::string_view plainText) const {
    return crypto_.hmacSha256(nonceKey_, plainText).substr(0, kNonceSize);
}

}  // namespace pelk
