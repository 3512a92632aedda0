#pragma once
// Whether a message is a meeting request, or an answer to one, rather than an e-mail.

#include "mailstore/content_type.h"
#include "mailstore/mail_file.h"
#include "mailstore/message_header.h"

namespace pelk {

/// Whether the message, or a part of it that is no attachment, is a calendar with a method other
/// than PUBLISH. What an attached message holds does not count. Reads the body, a block at a time,
/// only if it can hold a calendar. `type` is what the header says. Fails with an `Error`.
bool isMeeting(const MessagePlace& place, const MessageHeader& header, const ContentType& type);

}  // namespace pelk
