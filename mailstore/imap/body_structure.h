#pragma once
// Finds calendars in the structure of a message's body. Include it in source files only.

#include <libetpan/libetpan.h>

#include "mailstore/imap/imap_connection.h"

namespace pelk {

/// Notes in `header` which parts of the body are, or may be, meeting requests or answers to them.
/// Ignores attachments, as `isMeeting` does for messages on disk.
void findCalendars(const mailimap_body& body, FetchedHeader& header);

}  // namespace pelk
