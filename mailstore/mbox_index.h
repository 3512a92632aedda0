#pragma once
// Where the messages of an mbox lie, found in one pass over the file.

#include <cstdint>
#include <vector>

#include "mailstore/mail_file.h"

namespace pelk {

struct MboxEntry {
    std::uint64_t offset = 0;
    /// Behind the message.
    std::uint64_t end = 0;
    /// The time in the line that the message begins with, see `NotedTime`.
    std::int64_t received = 0;
    bool onWallClock = false;
    /// Whether the message can be anything but an e-mail. Most cannot, and need no closer look.
    bool doubtful = false;
    /// Whether the mail program has deleted the message.
    bool expunged = false;
};

/// The messages in order, but for those that are expunged. One begins at the beginning of the file
/// and at each line "From " behind an empty line, and ends where the next begins or the file ends.
/// Fails with an `Error`.
std::vector<MboxEntry> indexMbox(const MailFile& file);

}  // namespace pelk
