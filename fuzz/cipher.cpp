// Fuzzes the encrypted file.

#include "db/database_cipher.h"
#include "fuzz/fuzz.h"
#include "platform/desktop/openssl_crypto.h"

namespace pelk {
namespace {

const DatabaseCipher& cipher() {
    static const OpensslCrypto crypto;
    static const DatabaseCipher cipher = [] {
        DatabaseCipher made(crypto);
        made.setKey(kFuzzKey);
        return made;
    }();
    return cipher;
}

std::string encrypted(std::string_view plain) {
    std::string text;
    cipher().encrypt(std::string(plain), [&text](std::string_view piece) { text += piece; });
    return text;
}

std::optional<std::string> decrypted(std::string_view text) {
    try {
        return cipher().decrypt(text);
    } catch (const Error&) {
        return std::nullopt;
    }
}

}  // namespace
}  // namespace pelk

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace pelk;
    const std::string_view bytes = textOf(data, size);
    if (const std::optional<std::string> plain = decrypted(bytes))
        require(bytes.starts_with(encrypted(*plain)), "only what was encrypted is decrypted");

    std::string text = encrypted(bytes);
    require(decrypted(text) == bytes, "what was encrypted is decrypted");
    if (size < 3)
        return 0;
    // The first two input bytes select the byte to change, and the third is its new value.
    char& changed = text[(data[0] * 256U + data[1]) % text.size()];
    if (changed == static_cast<char>(data[2]))
        return 0;
    changed = static_cast<char>(data[2]);
    require(!decrypted(text), "a change of any byte is detected");
    return 0;
}
