#pragma once
// The mail of an account on an IMAP server as the mail of the mail client. It is only ever read.

#include <memory>

#include "mailstore/imap/imap_server.h"
#include "mailstore/mail_store.h"

namespace pelk {

/// Connects, and lists the folders as they are from now on; fails with an `Error` when that cannot
/// be done. The account is one top-level folder, or the folder is that its address names. Copies of
/// an e-mail in several folders are told by their Message-ID.
///
/// Default folders are those that the server names as such (RFC 6154); those for which it names
/// none go by name, as on the disk.
///
/// A connection that is lost is made again, and goes on where it was. A server that cannot be
/// reached any more, or gives nothing but answers that cannot be read, fails each folder and
/// message that is left with an `Error`.
std::unique_ptr<MailSession> openImapSession(const ImapAccount& account, ImapServerOptions server,
                                             MailStoreOptions options);

}  // namespace pelk
