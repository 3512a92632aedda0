#pragma once
// Finds calendars in the structure of a message's body (RFC 3501, 7.4.2).

#include "mailstore/imap/imap_connection.h"
#include "mailstore/imap/response_cursor.h"

namespace pelk {

/// Reads a structure and notes in `header` which parts of the body are, or may be, meeting requests
/// or answers to them. Ignores attachments, as `isMeeting` does for messages on disk, and attached
/// messages. Throws `BrokenAnswer` if it cannot be read.
void findCalendars(ResponseCursor& structure, FetchedHeader& header);

}  // namespace pelk
