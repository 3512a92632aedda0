#include "mailstore/message_identity.h"

#include <algorithm>
#include <string_view>

namespace pelk {
namespace {

constexpr std::size_t kMaxId = 998;  // the longest line that RFC 5322, 2.1.1 allows

/// FNV-1a with 64 bits, see draft-eastlake-fnv.
class Hash {
 public:
    void add(std::string_view text) {
        for (const char c : text)
            value_ = (value_ ^ static_cast<unsigned char>(c)) * 0x100000001B3ULL;
    }
    std::uint64_t value() const { return std::max<std::uint64_t>(value_, 1); }

 private:
    std::uint64_t value_ = 0xCBF29CE484222325ULL;
};

}  // namespace

std::string messageId(const MessageHeader& header) {
    const std::string value = header.first("Message-ID");
    const std::size_t open = value.find('<');
    const std::size_t begin = open == std::string::npos ? 0 : open + 1;
    const std::string_view inner = std::string_view(value).substr(begin);
    const std::string_view id = inner.substr(0, inner.find('>'));
    const std::size_t first = std::min(id.find_first_not_of(' '), id.size());
    return std::string(id.substr(first, id.find_last_not_of(' ') + 1 - first).substr(0, kMaxId));
}

std::uint64_t fingerprint(const MessageHeader& header) {
    Hash hash;
    const std::string id = messageId(header);
    hash.add(id);
    if (id.empty()) {
        for (const char* const field :
             {"Received", "Date", "From", "Sender", "To", "Cc", "Subject"}) {
            for (const std::string& value : header.all(field)) {
                hash.add(field);
                hash.add(value);
            }
        }
    }
    return hash.value();
}

}  // namespace pelk
