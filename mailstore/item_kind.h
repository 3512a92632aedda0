#pragma once
// What an item of a mail folder is: an e-mail, or something that only travels like one.

#include "mailstore/mail_file.h"
#include "mailstore/message_header.h"

namespace pelk {

enum class ItemKind {
    Mail,
    /// A meeting request, or an answer to one.
    Meeting,
    /// A delivery report or a receipt.
    Report,
};

/// Reads on in the message only when its header leaves the matter open. Fails with an `Error`.
ItemKind itemKind(const MessagePlace& place, const MessageHeader& header);

}  // namespace pelk
