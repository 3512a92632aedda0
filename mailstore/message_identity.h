#pragma once
// What tells that two messages are copies of one e-mail.

#include <cstdint>
#include <string>

#include "mailstore/message_header.h"

namespace pelk {

/// The Message-ID (RFC 5322, 3.6.4) without brackets and blanks around it, cut when it is absurdly
/// long; empty when there is none.
std::string messageId(const MessageHeader& header);

/// A hash of the Message-ID or, where that is missing, of what else was written on the way to the
/// reader: mail programs change other fields later. Never 0. It is kept on disk, so it must stay
/// the same for ever.
std::uint64_t fingerprint(const MessageHeader& header);

}  // namespace pelk
