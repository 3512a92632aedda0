#include "db/database_cipher.h"

#include <cstddef>
#include <optional>
#include <utility>

#include "db/damaged_data.h"

namespace pelk {
namespace {

/// Stands before the base64 text and is authenticated with it.
constexpr std::string_view kVersion = "PELK1:";
constexpr std::size_t kNonceSize = 12;
constexpr std::size_t kEncodedNonceSize = kNonceSize / 3 * 4;
// What is made of three bytes each can be put together to what would be made of all at once.
static_assert(kNonceSize % 3 == 0);

}  // namespace

MakeText readyText(std::string text) {
    return [text = std::move(text)](const TakePiece& watch) {
        watch(text);
        return text;
    };
}

void DatabaseCipher::setKey(std::string_view key) {
    const auto derive = [&](std::string_view purpose) {
        return crypto_.hmacSha256(key, [purpose](const TakePiece& take) { take(purpose); });
    };
    sealingKey_ = derive("pelk database sealing key");
    nonceKey_ = derive("pelk database nonce key");
}

/// The nonce is derived from the text, so that equal texts give equal files and different ones
/// never share a nonce.
void DatabaseCipher::encipher(const MakeText& makeText, const TakePiece& take) const {
    std::string plainText;
    const std::string nonce =
        crypto_.hmacSha256(nonceKey_, [&](const TakePiece& watch) { plainText = makeText(watch); })
            .substr(0, kNonceSize);
    take(std::string(kVersion) + crypto_.base64(nonce));
    crypto_.seal(sealingKey_, nonce, kVersion, std::move(plainText), take);
}

std::string DatabaseCipher::decipher(std::string_view cipherText) const {
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
