#include "db/database_cipher.h"

#include <cstddef>
#include <optional>

#include "platform/error.h"

namespace pelk {
namespace {

/// Stands before the base64 text and is authenticated with it.
constexpr std::string_view kVersion = "PELK1:";
constexpr std::size_t kNonceSize = 12;

}  // namespace

void DatabaseCipher::setKey(std::string_view key) {
    sealingKey_ = crypto_.hmacSha256(key, "pelk database sealing key");
    nonceKey_ = crypto_.hmacSha256(key, "pelk database nonce key");
}

void DatabaseCipher::setPlainText(std::string_view text) {
    const std::string nonce = nonceOf(text);
    cipherText_ = kVersion;
    cipherText_ += crypto_.base64(nonce + crypto_.seal(sealingKey_, nonce, kVersion, text));
}

void DatabaseCipher::setCipherText(std::string_view text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
        text.remove_suffix(1);
    if (!text.starts_with(kVersion))
        throw Error("It does not begin as a database file does.");
    const std::string_view encoded = text.substr(kVersion.size());
    const std::string bytes = crypto_.fromBase64(encoded);
    if (bytes.size() < kNonceSize || crypto_.base64(bytes) != encoded)
        throw Error("It is cut short or damaged.");

    const std::string_view nonce = std::string_view(bytes).substr(0, kNonceSize);
    const std::string_view sealed = std::string_view(bytes).substr(kNonceSize);
    std::optional<std::string> plain = crypto_.open(sealingKey_, nonce, kVersion, sealed);
    if (!plain)
        throw Error("It is damaged, or was made with another key.");
    plainText_ = std::move(*plain);
}

/// Derived from the text, so that equal texts give equal files and different ones never share a
/// nonce.
std::string DatabaseCipher::nonceOf(std::string_view plainText) const {
    return crypto_.hmacSha256(nonceKey_, plainText).substr(0, kNonceSize);
}

}  // namespace pelk
