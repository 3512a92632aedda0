#pragma once
// What the structure of a message's body tells. For source files only.

#include <libetpan/libetpan.h>

#include "mailstore/imap/imap_connection.h"

namespace pelk {

/// Notes in `header` whether a part of the body, which is no attachment, is a calendar to be
/// answered, or may be one. As `isMeeting` of messages on the disk.
void findCalendars(const mailimap_body& body, FetchedHeader& header);

}  // namespace pelk
