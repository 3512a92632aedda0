#pragma once
// The text of a message, for people to read.

#include <string>

#include "mailstore/mail_file.h"
#include "mailstore/message_header.h"

namespace pelk {

struct BodyText {
    /// Valid UTF-8 whose lines end with "\n".
    std::string text;
    /// Whether there is more text, which was too long.
    bool isCut = false;
};

/// Returns the first part that is plain text and no attachment; if there is none with text, the
/// first one in HTML as plain text. Reads at most some MB of the message, and takes at most some
/// 100 kB of text. Throws an `Error` if the file cannot be read.
BodyText readBodyText(const MessagePlace& place, const MessageHeader& header);

}  // namespace pelk
