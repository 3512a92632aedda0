#pragma once
// The message files of Apple Mail: `.emlx`, and `.partial.emlx` for a message without attachments.
//
// The first line is the length of the message in bytes. The message follows, then a property list
// with its state. Apple does not document the format; docs.fileformat.com/email/emlx and
// jwz.org/blog/2005/07/emlx-flags describe it.

#include <memory>
#include <string_view>

#include "mailstore/mail_file.h"
#include "mailstore/message_time.h"

namespace pelk {

inline constexpr std::string_view kEmlxEnding = ".emlx";

struct Emlx {
    MessagePlace message;
    NotedTime received;
    /// Whether Apple Mail marked the message as deleted.
    bool deleted = false;
};

/// Finds the message in an `.emlx` file. Throws an `Error` if the file cannot be read, or if the
/// length does not lead to the property list: then the file is damaged, and a part of the header
/// may be missing. Any thread may call it.
Emlx readEmlx(const std::shared_ptr<const MailFile>& file);

}  // namespace pelk
