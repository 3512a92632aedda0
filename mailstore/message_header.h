#pragma once
// The header fields of a message (RFC 5322, 2.2).

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "mailstore/mail_file.h"

namespace pelk {

/// The header without the empty line that ends it. Lines that are not a field are ignored. Field
/// names match in any letter case.
class MessageHeader {
 public:
    /// `text` may begin with the separator line of an mbox.
    explicit MessageHeader(std::string text);
    MessageHeader(const MessageHeader&) = delete;
    MessageHeader& operator=(const MessageHeader&) = delete;

    /// Returns the values of all fields of that name, in order. They are unfolded; tabs become
    /// blanks and other control characters are removed.
    std::vector<std::string> all(std::string_view name) const;
    /// Returns the first of these values, or empty text.
    std::string first(std::string_view name) const;
    /// The length of the header in bytes, without the empty line.
    std::size_t length() const { return text_.size(); }

 private:
    struct Field {
        std::string_view name;
        std::string_view value;
    };

    void addLine(std::string_view line);

    const std::string text_;
    std::vector<Field> fields_;
};

/// Reads the header of a message, at most one block more than the header and at most 1 MB. Throws
/// an `Error` if the file cannot be read or no longer holds a message at that position.
MessageHeader readHeader(const MessagePlace& place);

}  // namespace pelk
