#pragma once
// Recognises meeting requests and answers to them (RFC 5545 calendars in MIME parts, RFC 6047).

#include <string_view>

#include "mailstore/content_type.h"
#include "mailstore/mail_file.h"
#include "mailstore/message_header.h"

namespace pelk {

/// Returns whether the message, or a part of it that is not an attachment, is a calendar with a
/// method other than PUBLISH. Ignores calendars in attached messages. Reads the body, one block at
/// a time, only if it can hold a calendar. `type` is the content type in `header`. Throws an
/// `Error` if the file cannot be read.
bool isMeeting(const MessagePlace& place, const MessageHeader& header, const ContentType& type);

/// Whether a calendar of that method is sent to be answered, or as an answer, and not to be read.
bool isMeetingMethod(std::string_view method);

/// The value of the METHOD property of a calendar, or empty text.
std::string_view methodOf(std::string_view calendar);

}  // namespace pelk
