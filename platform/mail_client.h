#pragma once
// The mail client that the program lives in: its mail, and its command bars.
//
// Every operation may fail with an `Error`: a mail system refuses, a message is broken. Objects
// are cheap references; each is released as soon as its receiver lets go of it.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/error.h"

namespace pelk {

/// One person as an e-mail names them. The mail client puts the address where a name is missing.
struct MailPerson {
    std::string name;
    std::string address;
};

/// An item of a mail folder that is no e-mail: a meeting request, a delivery report.
class NotAMailItem : public Error {
 public:
    NotAMailItem() : Error("The item is not an e-mail.") {}
};

/// A person of an e-mail is there, but the mail client does not give out the address.
class AddressRefused : public Error {
 public:
    using Error::Error;
};

/// The folders that every mail client has for a purpose of its own.
enum class DefaultFolder { Outbox, DeletedItems, Drafts, Junk };

class MailItem {
 public:
    virtual ~MailItem() = default;
    /// When the item came into its store.
    virtual LocalTime creationTime() = 0;
    /// Whether the item's own time is missing or lies after the last change of its store, so that
    /// `creationTime` is a guess which may be a later one after the next change.
    virtual bool isDatedAhead() { return false; }
    /// The Message-ID (RFC 5322, 3.6.4) without its brackets; empty when the item has none, or the
    /// client does not tell copies of an e-mail apart.
    virtual std::string messageId() { return {}; }
    /// A number that is the same whenever this e-mail is read again, wherever it lies by then; 0
    /// when the client cannot tell.
    virtual std::uint64_t fingerprint() { return 0; }
    /// The default folder in which the item's own labels put it, for a client that files e-mails by
    /// labels; nothing when they put it in none.
    virtual std::optional<DefaultFolder> labelledFolder() { return std::nullopt; }
    /// Whom a reply to this e-mail would go to first: its sender. Nothing when it has none. Throws
    /// `AddressRefused` when it has one whose address alone cannot be had.
    virtual std::optional<MailPerson> replyRecipient() = 0;
    /// Direct, copy and blind-copy recipients, in order.
    virtual int recipientCount() = 0;
    /// Recipient `index`, counted from 1.
    virtual MailPerson recipient(int index) = 0;
};

class MailFolder;

/// A walk over the folders inside a folder or session, from the first to the last.
class MailFolders {
 public:
    virtual ~MailFolders() = default;
    /// The first folder when it is called first, then the one after. Null when none is left.
    virtual std::unique_ptr<MailFolder> next() = 0;
};

class MailFolder {
 public:
    virtual ~MailFolder() = default;
    virtual std::string name() = 0;
    /// Where the folder lies. The place of a folder inside another one begins with the place of
    /// that one and "/". Empty when the client cannot tell its stores apart.
    virtual std::string place() { return {}; }
    /// Whether the folder is meant for e-mails, and not for appointments or other items.
    virtual bool holdsMail() = 0;
    virtual std::unique_ptr<MailFolders> folders() = 0;
    virtual int itemCount() = 0;
    /// Item `index`, counted from 1. Throws `NotAMailItem` when it is something else.
    virtual std::shared_ptr<MailItem> mailItem(int index) = 0;
};

class MailSession {
 public:
    virtual ~MailSession() = default;
    /// The top-level folders, one per message store.
    virtual std::unique_ptr<MailFolders> folders() = 0;
    /// The default folders whose items are not counted.
    virtual std::vector<DefaultFolder> leftOutFolders() {
        return {DefaultFolder::Outbox, DefaultFolder::DeletedItems};
    }
    /// Whether `folder` is the session's folder for that purpose.
    virtual bool isDefaultFolder(MailFolder& folder, DefaultFolder kind) = 0;
};

/// A button of a command-bar menu. Destroying it leaves the button in the menu.
class CommandButton {
 public:
    virtual ~CommandButton() = default;
    /// Takes the button out of its menu; its handler is never called again.
    virtual void remove() = 0;
};

class CommandPopup {
 public:
    virtual ~CommandPopup() = default;
    /// Adds a button that shows its caption only, and calls `clicked` when the user clicks it.
    virtual std::unique_ptr<CommandButton> addButton(std::string_view caption, std::string_view tag,
                                                     std::function<void()> clicked) = 0;
};

/// The host application.
class MailClient {
 public:
    virtual ~MailClient() = default;
    virtual std::unique_ptr<MailSession> session() = 0;
    /// Adds a temporary pop-up menu to the named command bar of the active window, in the place of
    /// one with that tag that an earlier connection left there. Null when the client has another
    /// place than a menu for the commands.
    virtual std::unique_ptr<CommandPopup> addPopup(std::string_view bar, std::string_view caption,
                                                   std::string_view tag) = 0;
};

}  // namespace pelk
