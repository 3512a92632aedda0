#pragma once
// Texts as OpenSSL takes them.

#include <string>
#include <string_view>

#include "platform/error.h"

namespace pelk {

inline const unsigned char* bytesOf(std::string_view text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

inline unsigned char* bytesOf(std::string& text) {
    return reinterpret_cast<unsigned char*>(text.data());
}

/// Throws `Error` when a call of the library has failed.
inline void requireCrypto(bool success) {
    if (!success)
        throw Error("The system's cryptographic library failed.");
}

}  // namespace pelk
