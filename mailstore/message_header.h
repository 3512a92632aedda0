#pragma once
// The header of a message: its fields.

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "mailstore/mail_file.h"

namespace pelk {

/// Ends before the first empty line. Lines that are no field are passed over. Names of fields are
/// found in any letter case.
class MessageHeader {
 public:
    /// `text` may begin with the line that parts messages in an mbox.
    explicit MessageHeader(std::string text);
    MessageHeader(const MessageHeader&) = delete;
    MessageHeader& operator=(const MessageHeader&) = delete;

    /// The values of every field of that name, in order, with folding undone and control characters
    /// removed or, where they part words, turned into blanks.
    std::vector<std::string> all(std::string_view name) const;
    /// The first of them, or empty text.
    std::string first(std::string_view name) const;
    /// Length of the header in bytes, without the empty line.
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

/// Reads the header of a message from its file, and no more than that but for part of a block. Of
/// an absurdly long header only the beginning. Fails with an `Error`, also when the file no longer
/// holds a message at that place.
MessageHeader readHeader(const MessagePlace& place);

}  // namespace pelk
