#pragma once
// Reads the lines of a message from its file, one block at a time.

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "mailstore/mail_file.h"

namespace pelk {

class LineReader {
 public:
    /// Starts `from` bytes after the beginning of the message.
    LineReader(MessagePlace place, std::uint64_t from);

    /// Returns the next line without its line end, valid until the next call, or nothing after the
    /// last. Splits lines that are longer than a block. Throws an `Error` if the file cannot be
    /// read or has become shorter.
    std::optional<std::string_view> next();

 private:
    /// Appends to what is left of the block. Returns false at the end of the message.
    bool fill();

    const MessagePlace place_;
    std::uint64_t at_;
    std::vector<char> block_;
    std::string_view left_;
};

}  // namespace pelk
