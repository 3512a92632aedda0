#pragma once
// Opens mail on disk and on servers together.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "mailstore/mail_store.h"

namespace pelk {

/// Opens an account on a mail server, given by its URL.
using OpenServer = std::function<std::unique_ptr<MailSession>(const std::string& url)>;

/// Opens all of `mail`, paths and URLs, as one session: first the paths, then the servers in order,
/// each once. Throws an `Error` if a path holds no mail, and what `openServer` throws.
std::unique_ptr<MailSession> openMixedSession(const std::vector<std::string>& mail,
                                              const MailStoreOptions& options,
                                              const OpenServer& openServer);

}  // namespace pelk
