#include "db/place_text.h"

#include <charconv>

namespace pelk {
namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";

}  // namespace

std::string encodePlace(const std::string& place) {
    std::string encoded;
    for (const char c : place) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > ' ' && byte < 0x7F && c != '%') {
            encoded += c;
            continue;
        }
        encoded += '%';
        encoded += kHexDigits[byte / 16];
        encoded += kHexDigits[byte % 16];
    }
    return encoded;
}

std::string decodePlace(std::string_view encoded) {
    std::string place;
    while (!encoded.empty()) {
        unsigned byte = static_cast<unsigned char>(encoded.front());
        const bool escaped = encoded.front() == '%' && encoded.size() >= 3;
        if (escaped)
            std::from_chars(encoded.data() + 1, encoded.data() + 3, byte, 16);
        place += static_cast<char>(byte);
        encoded.remove_prefix(escaped ? 3 : 1);
    }
    return place;
}

}  // namespace pelk
