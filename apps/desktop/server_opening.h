#pragma once
// Opens the mail of an account on a server on another thread.

#include <future>
#include <memory>
#include <string>

#include "mailstore/imap/imap_account.h"
#include "mailstore/mail_store.h"

namespace pelk {

/// Connects and logs in from its construction on. One that is no longer wanted can be destroyed at
/// any time: the thread then ends by itself, and closes the connection.
class ServerOpening {
 public:
    ServerOpening(const ImapAccount& account, const std::string& password,
                  const MailStoreOptions& options);

    bool isDone() const;
    /// Requires: `isDone()`, and not called before. Throws what `openImapSession` has thrown.
    std::unique_ptr<MailSession> take() { return session_.get(); }

 private:
    std::future<std::unique_ptr<MailSession>> session_;
};

}  // namespace pelk
