#pragma once
// The people named by an address field (From, To, ...) of an e-mail.

#include <string_view>
#include <vector>

#include "platform/mail_client.h"

namespace pelk {

/// The people in `field`, in order; its line folding is already undone. Takes whatever mail
/// programs write: a missing comma or quote, `;` between addresses, a name without brackets around
/// the address. Members of a group count, its name does not. Text without an address names nobody.
/// Needs time in proportion to the length of the field and never fails.
std::vector<MailPerson> parseAddressList(std::string_view field);

}  // namespace pelk
