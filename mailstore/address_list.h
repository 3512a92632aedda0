#pragma once
// Parses address fields (From, To, ...) of an e-mail: RFC 5322, 3.4, and what occurs beside it.

#include <string_view>
#include <vector>

#include "platform/mail_client.h"

namespace pelk {

/// Returns the people in `field`, which must be unfolded, in order. Accepts the mistakes of mail
/// programs: a missing comma or quote, `;` between addresses, a name without angle brackets around
/// the address. Returns the members of a group without the group's name, and leaves out text
/// without an address. Never fails. Takes linear time. Any thread may call it.
std::vector<MailPerson> parseAddressList(std::string_view field);

}  // namespace pelk
