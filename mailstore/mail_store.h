#pragma once
// Opens mail on disk as a `MailSession`: mbox files and folders of message files, in the layouts of
// common mail programs. Nothing here creates, changes or locks a file of a mail program.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "mailstore/folder_purposes.h"
#include "mailstore/item_kind.h"
#include "platform/mail_client.h"

namespace pelk {

/// What a list of messages shows of one message.
struct MessageSummary {
    /// The name of the sender, or the address if there is no name; empty without a sender.
    std::string from;
    std::string subject;
    LocalTime created;
    ItemKind kind = ItemKind::Mail;
};

/// A message opened to be read. All texts are valid UTF-8 without control characters.
struct MessageText {
    /// The names and values of the header fields for people, in order, without those missing.
    std::vector<std::pair<std::string, std::string>> fields;
    /// The text, in lines that end with "\n".
    std::string text;
    /// A sentence about text that is missing; usually empty.
    std::string note;
};

/// Every folder of a session of `openMailSession` is of this class.
class StoredFolder : public MailFolder {
 public:
    /// Describes item `index`, counted from 1, whatever its kind. Throws an `Error` if the item
    /// does not exist or cannot be read.
    virtual MessageSummary summary(int index) = 0;
    /// Reads item `index`, counted from 1, for people. Takes a bounded part of a long text, and
    /// turns HTML into plain text. Loads nothing from elsewhere: the text of a message on a server
    /// is not read. Throws as `summary` does.
    virtual MessageText read(int index);
};

struct MailStoreOptions {
    /// The names, in any letter case, of folders that are an outbox or hold deleted items. If
    /// empty, the names that mail programs commonly use.
    std::vector<std::string> outboxNames;
    std::vector<std::string> deletedNames;
    /// Whether items in folders for drafts and for junk are counted.
    bool countDrafts = false;
    bool countJunk = false;
    /// Default folders in addition to those that go by their names.
    FolderPurposes purposes = {};
    /// The addresses of the user's accounts.
    std::vector<std::string> ownAddresses = {};
};

/// Returns the default folders whose items are not counted.
std::vector<DefaultFolder> leftOutFoldersOf(const MailStoreOptions& options);
/// Returns whether a folder of that name at the top of a store is the default folder of that kind.
bool isFolderCalled(const MailStoreOptions& options, const std::string& name, DefaultFolder kind);

/// Opens `paths`. Each is one top-level folder, named by the last part of the path. A path
/// that is given twice, or is inside another one, is listed once. Throws an `Error` that names the
/// path if one does not exist, cannot be read or holds no mail of a known kind.
///
/// Default folders go by the settings of the mail program, if the options have them, or by their
/// names. The latter are directly below a path that the user gave, below an
/// account in it, or below a folder such as INBOX or [Gmail] there. A path that the user gave is
/// never a default folder itself.
///
/// A folder lists its items when it is first asked for them, and keeps this list. Items may outlive
/// their folder. Reading a folder or message that is unreadable or gone throws an `Error` and does
/// not affect the others. A session and its folders belong to one thread; several sessions may run
/// on several threads.
std::unique_ptr<MailSession> openMailSession(const std::vector<std::string>& paths,
                                             MailStoreOptions options);

}  // namespace pelk
