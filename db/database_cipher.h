#pragma once
// Enciphers the database document for its file, see docs/database-format.md.

#include <string>
#include <string_view>

#include "platform/crypto.h"

namespace pelk {

/// One use: set the key, set one of the two texts, get the other. The same plain text under the
/// same key always gives the same cipher text.
class DatabaseCipher {
 public:
    explicit DatabaseCipher(const Crypto& crypto) : crypto_(crypto) {}

    void setKey(std::string_view key);

    void setPlainText(std::string_view text);
    /// One line of printable characters, without its line ending.
    const std::string& cipherText() const { return cipherText_; }

    /// Line ends behind the text are ignored, so that a line read back from a file will do. Throws
    /// `Error`, which says why, when any other byte differs from what `cipherText` gave.
    void setCipherText(std::string_view text);
    const std::string& plainText() const { return plainText_; }

 private:
    std::string nonceOf(std::string_view plainText) const;

    const Crypto& crypto_;
    std::string sealingKey_;
    std::string nonceKey_;
    std::string plainText_;
    std::string cipherText_;
};

}  // namespace pelk
