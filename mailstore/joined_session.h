#pragma once
// Several sessions as one.

#include <memory>
#include <vector>

#include "platform/mail_client.h"

namespace pelk {

/// Returns a session with the stores of all `sessions`, in order. They must leave out the same
/// default folders, and answer false for a folder of another session. It belongs to one thread.
/// Requires: there is at least one.
std::unique_ptr<MailSession> joinSessions(std::vector<std::unique_ptr<MailSession>> sessions);

}  // namespace pelk
