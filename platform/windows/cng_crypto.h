#pragma once
// The cryptographic primitives over the system's own library (CNG).

#include "platform/crypto.h"

namespace pelk {

class CngCrypto : public Crypto {
 public:
    std::string hmacSha256(std::string_view key, std::string_view text) const override;
    std::string seal(std::string_view key, std::string_view nonce, std::string_view header,
                     std::string plain) const override;
    std::optional<std::string> open(std::string_view key, std::string_view nonce,
                                    std::string_view header, std::string sealed) const override;
    std::string base64(std::string_view bytes) const override;
    std::optional<std::string> fromBase64(std::string_view text) const override;
};

}  // namespace pelk
