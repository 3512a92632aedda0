#pragma once
// Finds the messages of an mbox (RFC 4155) in one pass over the file.

#include <cstdint>
#include <vector>

#include "mailstore/mail_file.h"

namespace pelk {

struct MboxEntry {
    std::uint64_t offset = 0;
    /// The offset after the last byte of the message.
    std::uint64_t end = 0;
    /// The time in the separator line, see `NotedTime`.
    std::int64_t received = 0;
    bool onWallClock = false;
    /// Whether the message may be a meeting request or a report, so `itemKind` has to decide.
    bool doubtful = false;
    /// Whether the mail program marked the message as deleted.
    bool expunged = false;
};

/// Returns the messages in order, without expunged ones. A message begins at the start of the file
/// and at each line "From " after an empty line. It ends where the next begins or the file ends.
/// Throws an `Error` if the file cannot be read or has become shorter.
std::vector<MboxEntry> indexMbox(const MailFile& file);

}  // namespace pelk
