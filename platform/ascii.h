#pragma once
// Case conversion for ASCII text, which most names and addresses are.

#include <algorithm>
#include <string>
#include <string_view>

namespace pelk {

inline bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

inline char lowerAscii(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

/// Returns the text with the letters A to Z in lower case.
inline std::string lowerAscii(std::string_view text) {
    std::string lower(text);
    for (char& byte : lower)
        byte = lowerAscii(byte);
    return lower;
}

}  // namespace pelk
