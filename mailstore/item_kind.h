#pragma once
// Tells e-mails from meeting requests and reports.

#include "mailstore/mail_file.h"
#include "mailstore/message_header.h"

namespace pelk {

class ContentType;

enum class ItemKind {
    Mail,
    /// A meeting request, or an answer to one.
    Meeting,
    /// A delivery report or a receipt (RFC 3464, RFC 8098).
    Report,
};

/// Returns the kind of a message. Reads the body only if the header does not decide. Throws an
/// `Error` if the file cannot be read.
ItemKind itemKind(const MessagePlace& place, const MessageHeader& header);

/// Whether a message of that content is a delivery report or a receipt.
bool isReport(const ContentType& type);

}  // namespace pelk
