#pragma once
// Parses the responses to FETCH commands (RFC 3501, 7.4.2).

#include <optional>
#include <string_view>

#include "mailstore/imap/imap_connection.h"

namespace pelk {

/// Returns the message that a response shows. Returns nothing for a response of another kind, and
/// for a message without UID or text, whose flags have changed. Throws `BrokenAnswer` if it cannot
/// be read.
std::optional<FetchedHeader> fetchedHeader(std::string_view response);

}  // namespace pelk
