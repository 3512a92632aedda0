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
    /// The decoded name, for display.
    std::string name;
    std::string place;
    /// The server's name of the folder; nullopt if it cannot contain messages.
    std::optional<std::string> mailbox;
    /// The purpose that the server declares, and whether the folder contains all mail (RFC 6154).
    std::optional<DefaultFolder> purpose;
    bool holdsAll = false;
    /// Whether the folder is for sent e-mails, by the server's declaration or by its name.
    bool holdsSent = false;
    /// Whether the folder is at a level where names identify default folders.
    bool atTop = false;
    bool isStore = false;
    std::vector<std::shared_ptr<MailboxNode>> folders;
};

/// Returns the account's node, which has no items, with the folders below it: INBOX first, then in
/// the order of the server's names. Throws `Error` if there are too many.
std::shared_ptr<MailboxNode> mailboxTree(const std::vector<ListedMailbox>& listed,
                                         const ImapAccount& account);

/// Returns the folder that the account's address names, as a separate store. Throws `Error` if it
/// does not exist.
std::shared_ptr<MailboxNode> namedMailbox(const MailboxNode& account,
                                          const std::vector<std::string>& names);

}  // namespace pelk
