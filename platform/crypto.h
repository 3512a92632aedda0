#pragma once
// The cryptographic primitives that the database cipher is made of.

#include <optional>
#include <string>
#include <string_view>

#include "platform/pieces.h"

namespace pelk {

/// Byte strings in, byte strings out. A failure of the library itself is an `Error`, a lack of
/// memory `std::bad_alloc`: neither says anything of the bytes.
class Crypto {
 public:
    virtual ~Crypto() = default;

    /// HMAC-SHA256 of all pieces: 32 bytes.
    virtual std::string hmacSha256(std::string_view key, const MakePieces& make) const = 0;
    /// AES-256-GCM: hands out the base64 of as many bytes as `plain`, which is enciphered in its
    /// place, and of the tag of 16. The key has 32 bytes, the nonce 12; `header` is authenticated
    /// but not part of the result. `take` may be called on another thread.
    virtual void seal(std::string_view key, std::string_view nonce, std::string_view header,
                      std::string plain, const TakePiece& take) const = 0;
    /// The reverse of `seal` and of its base64, in its place, too; nothing when a byte of key,
    /// nonce, header or `sealed` differs.
    virtual std::optional<std::string> open(std::string_view key, std::string_view nonce,
                                            std::string_view header, std::string sealed) const = 0;

    /// Base64 without line breaks, padded.
    virtual std::string base64(std::string_view bytes) const = 0;
    /// The reverse of `base64`; nothing for any text that it does not write, to the last bit.
    virtual std::optional<std::string> fromBase64(std::string_view text) const = 0;
};

}  // namespace pelk
