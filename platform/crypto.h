#pragma once
// The cryptographic primitives that the database cipher is made of.

#include <optional>
#include <string>
#include <string_view>

namespace pelk {

/// Byte strings in, byte strings out. A failure of the library itself is an `Error`.
class Crypto {
 public:
    virtual ~Crypto() = default;

    /// HMAC-SHA256: 32 bytes.
    virtual std::string hmacSha256(std::string_view key, std::string_view data) const = 0;
    /// AES-256-GCM: as many bytes as `plain`, which is enciphered in its place, then the tag of 16.
    /// The key has 32 bytes, the nonce 12; `header` is authenticated but not part of the result.
    virtual std::string seal(std::string_view key, std::string_view nonce, std::string_view header,
                             std::string plain) const = 0;
    /// The reverse of `seal`, in its place, too; nothing when a byte of key, nonce, header or
    /// `sealed` differs.
    virtual std::optional<std::string> open(std::string_view key, std::string_view nonce,
                                            std::string_view header, std::string sealed) const = 0;

    /// Base64 without line breaks, padded.
    virtual std::string base64(std::string_view bytes) const = 0;
    /// The reverse of `base64`; nothing for any text that it does not write, to the last bit.
    virtual std::optional<std::string> fromBase64(std::string_view text) const = 0;
};

}  // namespace pelk
