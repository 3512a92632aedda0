#pragma once
// The folders of an account, as a tree.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "mailstore/imap/imap_connection.h"
#include "platform/mail_client.h"

namespace pelk {

struct MailboxNode {
    /// As people read it.
    std::string name;
    std::string place;
    /// The server's own name of the folder; nothing when it has no place for items.
    std::optional<std::string> mailbox;
    /// What the server says the folder is for, and whether it holds the mail of all others.
    std::optional<DefaultFolder> purpose;
    bool holdsAll = false;
    /// Whether it stands where folders are known by their names.
    bool atTop = false;
    bool isStore = false;
    std::vector<std::shared_ptr<MailboxNode>> folders;
};

/// The account's folders below its own node, which has no items: INBOX first, then in the order of
/// the server's names. Fails with an `Error` when there are too many.
std::shared_ptr<MailboxNode> mailboxTree(const std::vector<ListedMailbox>& listed,
                                         const ImapAccount& account);

/// The folder that the account's address names, as a store of its own. Fails with an `Error` when
/// there is none.
std::shared_ptr<MailboxNode> namedMailbox(const MailboxNode& account,
                                          const std::vector<std::string>& names);

}  // namespace pelk
