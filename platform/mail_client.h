#pragma once
// The mail client that hosts the program: its mail and its command bars.
//
// Every operation may throw `Error`: mail systems refuse, messages are broken. Objects are
// references that cost little; destroy each as soon as it is no longer needed.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/error.h"
#include "platform/mail_automation.h"

namespace pelk {

/// A person of an e-mail. The mail client uses the address as the name when there is none.
struct MailPerson {
    std::string name;
    std::string address;
};

/// The item is not an e-mail: a meeting request, a delivery report.
class NotAMailItem : public Error {
 public:
    NotAMailItem() : Error("The item is not an e-mail.") {}
};

/// The folder contains mail in a format that nothing here can read. No later scan can read it, so
/// this is not a read error.
class UnknownMailFormat : public Error {
 public:
    explicit UnknownMailFormat(const std::string& path)
        : Error(path + ": mail of a kind that Pelk cannot read.") {}
};

/// The e-mail has this person, but the mail client does not reveal the address.
class AddressRefused : public Error {
 public:
    using Error::Error;
};

/// The folders that every mail client has for a purpose.
enum class DefaultFolder { Outbox, DeletedItems, Drafts, Junk };

class MailItem {
 public:
    virtual ~MailItem() = default;
    /// Returns when the item came into its store.
    virtual LocalTime creationTime() = 0;
    /// Returns when the sender wrote the item, as its Date field (RFC 5322, 3.6.1) says, in the
    /// user's time zone. Nothing when it has no such field, or that is not a date.
    virtual std::optional<LocalTime> sentTime() { return std::nullopt; }
    /// Whether the item's own time is missing or later than the last change of its store.
    /// `creationTime` is then a guess, which may be later after the next change.
    virtual bool isDatedAhead() { return false; }
    /// Returns the Message-ID (RFC 5322, section 3.6.4) without its brackets. Empty when the item
    /// has none, or the client does not tell copies of an e-mail apart.
    virtual std::string messageId() { return {}; }
    /// Returns a number that identifies this e-mail permanently, even after it has been moved; 0
    /// when the client has none.
    virtual std::uint64_t fingerprint() { return 0; }
    /// Returns the default folder that the item's labels name, for a client that files e-mails by
    /// labels.
    virtual std::optional<DefaultFolder> labelledFolder() { return std::nullopt; }
    /// Returns the first recipient of a reply to this e-mail, who is usually its sender; nothing
    /// when there is none. Throws `AddressRefused` when only the address is unavailable.
    virtual std::optional<MailPerson> replyRecipient() = 0;
    /// The direct, copy and blind-copy recipients are numbered in this order.
    virtual int recipientCount() = 0;
    /// Returns recipient `index`, counted from 1.
    virtual MailPerson recipient(int index) = 0;
    /// Returns what the header says about mailing lists and automatic sending; nothing when the
    /// client does not show it.
    virtual MailAutomation automation() { return {}; }
};

/// Up to where the items of a folder have been counted, as a mail server numbers them.
struct FolderMark {
    /// The folder's place.
    std::string place;
    /// Which numbering of the folder's items this is about.
    std::uint32_t numbering = 0;
    /// The last number.
    std::uint32_t last = 0;

    friend bool operator==(const FolderMark&, const FolderMark&) = default;
};

class MailFolder;

/// Iterates over the folders inside a folder or session.
class MailFolders {
 public:
    virtual ~MailFolders() = default;
    /// Returns the next folder, the first one at first; null at the end.
    virtual std::unique_ptr<MailFolder> next() = 0;
};

class MailFolder {
 public:
    virtual ~MailFolder() = default;
    virtual std::string name() = 0;
    /// Returns where the folder is. The place of a nested folder begins with its parent's place and
    /// "/". Empty when the client cannot tell its stores apart.
    virtual std::string place() { return {}; }
    /// Whether the folder is for e-mails rather than appointments or other items.
    virtual bool holdsMail() = 0;
    /// Whether the folder is for e-mails that the user has sent.
    virtual bool isSentMail() { return false; }
    /// By how many seconds the clock that stamps the items may be behind the user's.
    virtual int clockTolerance() { return 0; }
    virtual std::unique_ptr<MailFolders> folders() = 0;
    virtual int itemCount() = 0;
    /// Returns item `index`, counted from 1. Throws `NotAMailItem` when it is something else.
    virtual std::shared_ptr<MailItem> mailItem(int index) = 0;
    /// Told that a scan has taken all items, one after the other, and read each.
    virtual void noteRead() {}
};

class MailSession {
 public:
    virtual ~MailSession() = default;
    /// Returns the top-level folders, one per message store.
    virtual std::unique_ptr<MailFolders> folders() = 0;
    /// Returns the default folders whose items are not counted.
    virtual std::vector<DefaultFolder> leftOutFolders() {
        return {DefaultFolder::Outbox, DefaultFolder::DeletedItems};
    }
    /// Whether `folder` is the session's default folder of that kind.
    virtual bool isDefaultFolder(MailFolder& folder, DefaultFolder kind) = 0;
    /// Returns the addresses of the user's accounts, if the client knows them.
    virtual std::vector<std::string> ownAddresses() { return {}; }
    /// Told, before a scan, the marks of the last one. Items up to a mark have been counted, so the
    /// session need not read them: it may give them out as items from before all scans.
    virtual void setMarks(const std::vector<FolderMark>& /*marks*/) {}
    /// The marks with those of the folders that have been read since.
    virtual std::vector<FolderMark> marks() { return {}; }
};

/// A button of a command-bar menu. Destroying the object leaves the button in the menu.
class CommandButton {
 public:
    virtual ~CommandButton() = default;
    /// Removes the button from its menu. Its handler is never called again.
    virtual void remove() = 0;
};

class CommandPopup {
 public:
    virtual ~CommandPopup() = default;
    /// Adds a button that shows only its caption and calls `clicked` when the user clicks it.
    virtual std::unique_ptr<CommandButton> addButton(std::string_view caption, std::string_view tag,
                                                     std::function<void()> clicked) = 0;
};

/// The host application.
class MailClient {
 public:
    virtual ~MailClient() = default;
    virtual std::unique_ptr<MailSession> session() = 0;
    /// Adds a temporary pop-up menu to the named command bar of the active window. It replaces a
    /// menu with the same tag that an earlier connection left. Null when the client shows the
    /// commands elsewhere.
    virtual std::unique_ptr<CommandPopup> addPopup(std::string_view bar, std::string_view caption,
                                                   std::string_view tag) = 0;
    /// Shows a line about what was done last, if the client has a place for it.
    virtual void tell(const std::string& /*text*/) {}
};

}  // namespace pelk
