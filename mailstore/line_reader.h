#pragma once
// The lines of a message, read from its file a block at a time.

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "mailstore/mail_file.h"

namespace pelk {

class LineReader {
 public:
    /// Begins `from` bytes after the beginning of the message.
    LineReader(MessagePlace place, std::uint64_t from);

    /// The next line without its end, valid until the next call; nothing after the last. A line
    /// longer than a block comes in pieces. Fails with an `Error`.
    std::optional<std::string_view> next();

 private:
    /// Reads on behind what is left of the block. False when nothing was added.
    bool fill();

    const MessagePlace place_;
    std::uint64_t at_;
    std::vector<char> block_;
    std::string_view left_;
};

}  // namespace pelk
