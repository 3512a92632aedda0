#pragma once
// Enciphers the database document for its file, see docs/database-format.md.

#include <functional>
#include <string>
#include <string_view>

#include "platform/crypto.h"

namespace pelk {

/// Makes a plain text, and hands each piece of it to `watch`, too, as soon as it is there.
using MakeText = std::function<std::string(const TakePiece& watch)>;

/// Hands over a text that is there already.
MakeText readyText(std::string text);

/// The same plain text under the same key always gives the same cipher text.
class DatabaseCipher {
 public:
    explicit DatabaseCipher(const Crypto& crypto) : crypto_(crypto) {}

    void setKey(std::string_view key);

    /// Hands out the cipher text: one line of printable characters, without its line ending. Throws
    /// `Error`, and whatever `makeText` and `take` throw.
    void encipher(const MakeText& makeText, const TakePiece& take) const;

    /// The plain text. Line ends behind the cipher text are ignored, so that a line read back from
    /// a file will do. Throws `DamagedData`, which says why, when any other byte differs from what
    /// `encipher` gave, and `Error` when the library fails.
    std::string decipher(std::string_view cipherText) const;

 private:
    const Crypto& crypto_;
    std::string sealingKey_;
    std::string nonceKey_;
};

}  // namespace pelk
