#pragma once
// The messages of one folder, in order.

#include <memory>
#include <string>
#include <vector>

#include "mailstore/item_kind.h"
#include "mailstore/mbox_index.h"
#include "mailstore/stored_message.h"

namespace pelk {

struct ListedMessage {
    std::shared_ptr<StoredMessage> message;
    ItemKind kind = ItemKind::Mail;
};

class StoredMessages {
 public:
    virtual ~StoredMessages() = default;
    virtual std::size_t count() const = 0;
    /// Returns message `index`, counted from 0. Requires: index < count(). Throws an `Error` if the
    /// message cannot be read. Several threads may call it at once.
    virtual ListedMessage message(std::size_t index) const = 0;
    /// Returns where the whole of message `index` is, in an open file. Requires and throws as
    /// `message` does.
    virtual MessagePlace place(std::size_t index) const = 0;
};

/// Finds the messages of an mbox, which may be compressed. Throws an `Error` as `openContent` does.
std::unique_ptr<StoredMessages> openMbox(const std::string& path);
/// Returns some messages of an mbox.
std::unique_ptr<StoredMessages> openMbox(std::shared_ptr<const MailFile> file,
                                         std::vector<MboxEntry> entries);

/// Returns the one message of an `.eml` file. Opens the file only when the message is requested.
std::unique_ptr<StoredMessages> openSingleMessage(const std::string& path);

/// Lists the messages of a directory: its `.eml` files by name, then the messages in `cur` and
/// `new` together, by name. Leaves out messages marked as deleted. Throws an `Error` if a directory
/// cannot be read.
std::unique_ptr<StoredMessages> openDirectory(const std::string& path);

}  // namespace pelk
