#pragma once
// The people whom the header of a message names, and the mailing lists and programs.

#include <optional>
#include <string_view>
#include <vector>

#include "mailstore/message_header.h"
#include "platform/mail_client.h"

namespace pelk {

/// Those in all fields of that name, in order.
std::vector<MailPerson> peopleIn(const MessageHeader& header, std::string_view field);

/// Whom a reply would go to first (`MailItem::replyRecipient`).
std::optional<MailPerson> replyRecipientOf(const MessageHeader& header);

/// Direct, copy and blind-copy recipients, in order.
std::vector<MailPerson> recipientsOf(const MessageHeader& header);

/// What the header says about mailing lists and automatic sending.
MailAutomation automationOf(const MessageHeader& header);

}  // namespace pelk
