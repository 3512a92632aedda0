#pragma once
// Opens an account on a mail server on another thread.

#include <future>
#include <memory>
#include <string>

#include "mailstore/imap/imap_account.h"
#include "mailstore/mail_store.h"

namespace pelk {

/// The constructor starts to connect and log in. The object can be destroyed at any time: the
/// thread then ends by itself and closes the connection.
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
