#pragma once
// Opens the mail of an account on an IMAP server as a `MailSession`. It only reads.

#include <memory>

#include "mailstore/imap/imap_server.h"
#include "mailstore/mail_store.h"

namespace pelk {

/// Connects and lists the folders; the session does not notice later changes of this list. Throws
/// `LoginRefused` if the server refuses the password, and `Error` if anything else fails. The only
/// top-level folder is the account, or the folder that its address names. The Message-ID identifies
/// copies of an e-mail in several folders.
///
/// The server declares the default folders (RFC 6154). Kinds that it does not declare go by folder
/// name, as on disk.
///
/// After a lost connection, the session connects again and continues where it was. If the server is
/// out of reach, or no answer can be parsed, every remaining folder and message throws `Error`.
///
/// A session and its folders belong to one thread.
std::unique_ptr<MailSession> openImapSession(const ImapAccount& account, ImapServerOptions server,
                                             MailStoreOptions options);

}  // namespace pelk
