#pragma once
// The mail client's namespace: its stores, their folders and items.

#include <memory>

#include "platform/mail_client.h"
#include "platform/windows/mail/dispatch.h"

namespace pelk {

/// Opens the namespace that holds all mail. Objects are released as early as possible because the
/// mail server limits how many may be open.
std::unique_ptr<MailSession> openSession(Dispatch nameSpace);

}  // namespace pelk
