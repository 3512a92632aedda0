#include "mailstore/mozilla_status.h"

#include <charconv>

namespace pelk {
namespace {

constexpr std::string_view kField = "X-Mozilla-Status: ";
constexpr unsigned kExpunged = 0x0008;

bool hasExpungedBit(std::string_view digits) {
    unsigned flags = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), flags, 16);
    return (flags & kExpunged) != 0;
}

}  // namespace

bool isExpunged(std::string_view start) {
    for (;;) {
        const std::size_t end = start.find('\n');
        // An empty line ends the header.
        if (end == std::string_view::npos || end == 0 || start.front() == '\r')
            return false;
        if (start.front() == 'X' && start.starts_with(kField))
            return hasExpungedBit(start.substr(kField.size(), end - kField.size()));
        start.remove_prefix(end + 1);
    }
}

}  // namespace pelk
