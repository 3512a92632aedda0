#pragma once
// The messages of one folder, in order.

#include <memory>
#include <string>
#include <vector>

#include "mailstore/item_kind.h"
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
    /// Message `index`, counted from 0. Requires: index < count(). Fails with an `Error`.
    virtual ListedMessage message(std::size_t index) const = 0;
};

/// Finds the messages of an mbox. Fails with an `Error`.
std::unique_ptr<StoredMessages> openMbox(const std::string& path);

/// The message that a file holds all by itself. Looks at the file only when the message is taken.
std::unique_ptr<StoredMessages> openSingleMessage(const std::string& path);

/// The messages of a directory: its `.eml` files by name, then those of a Maildir, in `cur` and
/// `new` together, by name. What the mail program has deleted is left out. Fails with an `Error`.
std::unique_ptr<StoredMessages> openDirectory(const std::string& path);

}  // namespace pelk
