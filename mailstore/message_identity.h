#pragma once
// Recognises copies of one e-mail.

#include <cstdint>
#include <string>

#include "mailstore/message_header.h"

namespace pelk {

/// Returns the Message-ID (RFC 5322, 3.6.4) without brackets and blanks around it, cut to 998
/// bytes. Empty if there is none.
std::string messageId(const MessageHeader& header);

/// Returns a hash of the Message-ID. Without one, hashes the fields that are written before
/// delivery, because mail programs change others later. Never returns 0. The value is stored on
/// disk, so it must not change between versions.
std::uint64_t fingerprint(const MessageHeader& header);

}  // namespace pelk
