#pragma once
// One e-mail of the mail client.

#include <map>
#include <memory>
#include <string>

#include "platform/mail_client.h"
#include "platform/windows/mail/dispatch.h"

namespace pelk {

/// Internet addresses of people in the mail server's directory, whom the mail client identifies by
/// directory entries ("/o=…/cn=…"). Each is looked up once because the look-up may ask the server.
using DirectoryAddresses = std::map<std::string, std::string>;

/// Throws `NotAMailItem` when the item is something else.
std::shared_ptr<MailItem> openMailItem(const Dispatch& item,
                                       std::shared_ptr<DirectoryAddresses> addresses);

}  // namespace pelk
