#pragma once
// The mail client's name space: its stores, their folders and items.

#include <memory>

#include "platform/mail_client.h"
#include "platform/windows/mail/dispatch.h"

namespace pelk {

/// The name space that holds all mail. Nothing of it is held longer than it is looked at: the mail
/// server limits how many of its objects may be open at once.
std::unique_ptr<MailSession> openSession(Dispatch nameSpace);

}  // namespace pelk
