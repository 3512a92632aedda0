#pragma once
// The cryptographic primitives that the database cipher is made of.

#include <optional>
#include <string>
#include <string_view>

namespace pelk {

/// Takes and returns byte strings. Throws `Error` when the library itself fails and
/// `std::bad_alloc` when memory runs out; neither says anything about the bytes. Any thread may
/// call it.
class Crypto {
 public:
    virtual ~Crypto() = default;

    /// HMAC-SHA256 (RFC 2104): 32 bytes.
    virtual std::string hmacSha256(std::string_view key, std::string_view text) const = 0;
    /// AES-256-GCM (NIST SP 800-38D): as many bytes as `plain`, which is encrypted in place, and
    /// the tag of 16 bytes. The key has 32 bytes, the nonce 12; `header` is authenticated but not
    /// part of the result.
    virtual std::string seal(std::string_view key, std::string_view nonce, std::string_view header,
                             std::string plain) const = 0;
    /// Reverses `seal`, in place; nothing when a byte of key, nonce, header or `sealed` differs.
    virtual std::optional<std::string> open(std::string_view key, std::string_view nonce,
                                            std::string_view header, std::string sealed) const = 0;

    /// Base64 (RFC 4648, 4) without line breaks, padded.
    virtual std::string base64(std::string_view bytes) const = 0;
    /// Reverses `base64`; nothing for any text that `base64` does not write, to the last bit.
    virtual std::optional<std::string> fromBase64(std::string_view text) const = 0;
};

}  // namespace pelk
