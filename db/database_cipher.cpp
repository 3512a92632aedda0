#include "db/database_cipher.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "db/damaged_data.h"

namespace pelk {
namespace {

/// Precedes the base64 text and is authenticated with it.
constexpr std::string_view kVersion = "PELK1:";
constexpr std::size_t kNonceSize = 12;
constexpr std::size_t kEncodedNonceSize = kNonceSize / 3 * 4;
/// How many bytes become one piece of base64: few enough for a processor's cache.
constexpr std::size_t kPieceSize = 3 << 18;
// Base64 makes four characters of three bytes. Texts of whole groups can be joined.
static_assert(kNonceSize % 3 == 0 && kPieceSize % 3 == 0);

}  // namespace

void DatabaseCipher::setKey(std::string_view key) {
    sealingKey_ = crypto_.hmacSha256(key, "pelk database sealing key");
    nonceKey_ = crypto_.hmacSha256(key, "pelk database nonce key");
}

/// The nonce is derived from the text, so that equal texts give equal files and different ones
/// never share a nonce.
void DatabaseCipher::encrypt(std::string plainText, const Sink& sink) const {
    const std::string nonce = crypto_.hmacSha256(nonceKey_, plainText).substr(0, kNonceSize);
    const std::string sealed = crypto_.seal(sealingKey_, nonce, kVersion, std::move(plainText));
    sink(std::string(kVersion) + crypto_.base64(nonce));
    for (std::string_view rest = sealed; !rest.empty();) {
        const std::string_view piece = rest.substr(0, kPieceSize);
        sink(crypto_.base64(piece));
        rest.remove_prefix(piece.size());
    }
}

std::string DatabaseCipher::decrypt(std::string_view cipherText) const {
    while (cipherText.ends_with('\n') || cipherText.ends_with('\r'))
        cipherText.remove_suffix(1);
    if (!cipherText.starts_with(kVersion))
        throw DamagedData("It does not begin as a database file does.");
    const std::string_view encoded = cipherText.substr(kVersion.size());
    const std::string_view encodedNonce = encoded.substr(0, kEncodedNonceSize);
    const auto nonce = crypto_.fromBase64(encodedNonce);
    auto sealed = crypto_.fromBase64(encoded.substr(encodedNonce.size()));
    if (!nonce || nonce->size() != kNonceSize || !sealed)
        throw DamagedData("It is cut short or damaged.");
    auto plain = crypto_.open(sealingKey_, *nonce, kVersion, std::move(*sealed));
    if (!plain)
        throw DamagedData("It is damaged, or was made with another key.");
    return std::move(*plain);
}

}  // namespace pelk
