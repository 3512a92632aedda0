#include "platform/windows/mail/automation_item.h"

#include <optional>
#include <utility>

namespace pelk {
namespace {

constexpr IID kMailItemInterface{
    0x00063034, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

/// The header as it came from the internet. E-mails within an organisation have none.
constexpr const char* kHeaderProperty = "http://schemas.microsoft.com/mapi/proptag/0x007D001F";
constexpr const char* kSmtpAddressProperty = "http://schemas.microsoft.com/mapi/proptag/0x39FE001E";

/// The year that means "no date".
constexpr int kNoDateYear = 4501;

bool isDirectoryEntry(const std::string& address) {
    return address.starts_with("/o=") || address.starts_with("/O=");
}

/// Returns what `lookUp` finds; empty when the mail client refuses.
template <typename LookUp>
std::string textIfAny(const LookUp& lookUp) {
    try {
        return lookUp();
    } catch (const Error&) {
        return {};
    }
}

/// Returns a property of a recipient or an e-mail that has no name in the object model; throws
/// `Error` when there is none.
std::string property(const Dispatch& object, const char* schema) {
    return object.object("PropertyAccessor", "a property accessor")
        .text("GetProperty", {variantOf(schema)});
}

/// Returns the internet address of a recipient in the server's directory; empty when it is unknown.
std::string smtpAddress(const Dispatch& recipient) {
    const std::string stored =
        textIfAny([&recipient] { return property(recipient, kSmtpAddressProperty); });
    if (!stored.empty())
        return stored;
    return textIfAny([&recipient] {
        return recipient.object("AddressEntry", "an address entry")
            .object("GetExchangeUser", "a user of the server")
            .text("PrimarySmtpAddress");
    });
}

class AutomationItem : public MailItem {
 public:
    AutomationItem(Dispatch item, std::shared_ptr<DirectoryAddresses> addresses)
        : item_(std::move(item)), addresses_(std::move(addresses)) {}

    LocalTime creationTime() override {
        const std::optional<LocalTime> time = timeIn("CreationTime");
        if (!time)
            throw Error("An e-mail has no date of creation.");
        return *time;
    }

    std::optional<LocalTime> sentTime() override { return timeIn("SentOn"); }

    /// Only a reply knows whom the sender wants answers to go to. It is discarded without being
    /// shown or saved.
    std::optional<MailPerson> replyRecipient() override {
        const Dispatch recipients =
            item_.object("Reply", "a reply").object("Recipients", "the recipients");
        if (recipients.number("Count") < 1)
            return std::nullopt;
        return person(recipients, 1);
    }

    int recipientCount() override {
        return item_.object("Recipients", "the recipients").number("Count");
    }

    MailPerson recipient(int index) override {
        return person(item_.object("Recipients", "the recipients"), index);
    }

    MailAutomation automation() override {
        return automationInHeader(textIfAny([this] { return property(item_, kHeaderProperty); }));
    }

 private:
    /// Returns the time in a property of the item; nothing when it holds none.
    std::optional<LocalTime> timeIn(const char* property) {
        const Variant value = item_.call(property);
        SYSTEMTIME time{};
        if (value.vt != VT_DATE || VariantTimeToSystemTime(value.date, &time) == FALSE ||
            time.wYear >= kNoDateYear)
            return std::nullopt;
        return LocalTime{time.wYear, time.wMonth,  time.wDay,
                         time.wHour, time.wMinute, time.wSecond};
    }

    MailPerson person(const Dispatch& recipients, int index) {
        const Dispatch recipient = recipients.object("Item", "a recipient", {variantOf(index)});
        MailPerson person{textIfAny([&recipient] { return recipient.text("Name"); }),
                          addressOf(recipient)};
        if (isDirectoryEntry(person.address))
            person.address = internetAddress(recipient, person.address);
        return person;
    }

    static std::string addressOf(const Dispatch& recipient) {
        try {
            return recipient.text("Address");
        } catch (const Error& error) {
            throw AddressRefused(error.what());
        }
    }

    /// Falls back to the directory entry when the address is unknown.
    std::string internetAddress(const Dispatch& recipient, const std::string& entry) {
        const auto known = addresses_->find(entry);
        if (known != addresses_->end())
            return known->second;
        const std::string found = smtpAddress(recipient);
        return (*addresses_)[entry] = found.empty() ? entry : found;
    }

    Dispatch item_;
    std::shared_ptr<DirectoryAddresses> addresses_;
};

}  // namespace

std::shared_ptr<MailItem> openMailItem(const Dispatch& item,
                                       std::shared_ptr<DirectoryAddresses> addresses) {
    std::optional<Dispatch> mail = item.narrowed(kMailItemInterface);
    if (!mail)
        throw NotAMailItem();
    return std::make_shared<AutomationItem>(std::move(*mail), std::move(addresses));
}

}  // namespace pelk
