#pragma once
// Encrypts the database document for its file, see docs/database-format.md.

#include <functional>
#include <string>
#include <string_view>

#include "platform/crypto.h"

namespace pelk {

/// Takes the pieces of a text in order. A large text is written in pieces because the system then
/// brings the first ones to the disk while later ones are made.
using Sink = std::function<void(std::string_view piece)>;

/// The same plain text under the same key always gives the same cipher text. Any thread may call
/// the functions that are const.
class DatabaseCipher {
 public:
    explicit DatabaseCipher(const Crypto& crypto) : crypto_(crypto) {}

    void setKey(std::string_view key);

    /// Hands the cipher text to `sink` piece by piece: one line of printable characters, without
    /// its line ending. Throws `Error` when the library fails, and whatever `sink` throws.
    void encrypt(std::string plainText, const Sink& sink) const;

    /// Returns the plain text. Line ends behind the cipher text are ignored, so that a line read
    /// back from a file will do. Throws `DamagedData`, which says why, when any other byte differs
    /// from what `encrypt` gave, and `Error` when the library fails.
    std::string decrypt(std::string_view cipherText) const;

 private:
    const Crypto& crypto_;
    std::string sealingKey_;
    std::string nonceKey_;
};

}  // namespace pelk
