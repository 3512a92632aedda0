#pragma once
// Mail on disk as the mail of the mail client: mbox files, Maildir trees and folders of `.eml`
// files. It is only ever read.

#include <memory>
#include <string>
#include <vector>

#include "mailstore/item_kind.h"
#include "platform/mail_client.h"

namespace pelk {

/// One line of a list of messages.
struct MessageSummary {
    /// Name of the sender, or the address of one without a name. Empty when there is no sender.
    std::string from;
    std::string subject;
    LocalTime created;
    ItemKind kind = ItemKind::Mail;
};

/// Every folder of the session, as its walks hand it out, is one of these.
class StoredFolder : public MailFolder {
 public:
    /// About item `index`, counted from 1, whether it is an e-mail or not. Fails with an `Error`.
    virtual MessageSummary summary(int index) = 0;
};

struct MailStoreOptions {
    /// The names, in any letter case, that make a folder an outbox or one for deleted items.
    /// Where empty, the names that mail programs commonly give them.
    std::vector<std::string> outboxNames;
    std::vector<std::string> deletedNames;
    /// Whether the items of these folders are counted.
    bool countDrafts = false;
    bool countJunk = false;
};

/// Each path is one top-level folder, named by the last part of the path. One that is named twice,
/// or that another one holds, is there once. Fails with an `Error` that names the path when one
/// does not exist, cannot be read or holds no mail of a known kind.
///
/// Default folders are those of a usual name at the top of a store: right below what the user
/// named, or below an account in that; also in a folder such as INBOX or [Gmail] there. What the
/// user named is none.
///
/// A folder is looked at when it is first asked for its items, and shows these from then on,
/// whatever happens to it on disk. Items outlive their folder. A folder or message that cannot be
/// read, or is gone, fails with an `Error` when it is read, and leaves the others as they are.
std::unique_ptr<MailSession> openMailSession(const std::vector<std::string>& paths,
                                             MailStoreOptions options);

}  // namespace pelk
