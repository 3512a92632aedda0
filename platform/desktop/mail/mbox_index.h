#pragma once
// Where the messages of an mbox lie, found in one pass over the file.

#include <cstdint>
#include <vector>

#include "platform/desktop/mail/mail_file.h"

namespace pelk {

struct MboxEntry {
    std::uint64_t offset = 0;
    /// The time in the line that the message begins with, or `kNoTime`.
    std::int64_t received = 0;
    /// Whether the message can be anything but an e-mail. Most cannot, and need no closer look.
    bool doubtful = false;
};

/// The messages in order. Each ends where the next begins, the last at the size of the file. One
/// begins at the beginning of the file and at each line "From " behind an empty line. Fails with
/// an `Error`.
std::vector<MboxEntry> indexMbox(const MailFile& file);

}  // namespace pelk
