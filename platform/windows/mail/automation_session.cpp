#include "platform/windows/mail/automation_session.h"

#include <optional>
#include <string>
#include <utility>

#include "platform/windows/mail/automation_item.h"

namespace pelk {
namespace {

constexpr const char* kFolder = "a folder";

/// `DefaultItemType` of a folder for mail (`olMailItem`).
constexpr int kMailItemType = 0;

/// The default folder for sent e-mails (`olFolderSentMail`).
constexpr int kSentMail = 5;

/// Returns the mail client's number of a default folder (`OlDefaultFolders`).
int numberOf(DefaultFolder kind) {
    switch (kind) {
        case DefaultFolder::DeletedItems:
            return 3;
        case DefaultFolder::Outbox:
            return 4;
        case DefaultFolder::Drafts:
            return 16;
        case DefaultFolder::Junk:
            break;
    }
    return 23;
}

/// `place` is the place of the folders; without it each top-level folder is asked for its own.
std::unique_ptr<MailFolders> openFolders(const Dispatch& parent,
                                         std::shared_ptr<DirectoryAddresses> addresses,
                                         std::optional<std::string> place);

class AutomationFolder : public MailFolder {
 public:
    AutomationFolder(Dispatch folder, std::shared_ptr<DirectoryAddresses> addresses,
                     std::optional<std::string> place)
        : folder_(std::move(folder)), addresses_(std::move(addresses)), place_(std::move(place)) {}

    std::string entryId() const { return folder_.text("EntryID"); }

    std::string name() override { return folder_.text("Name"); }
    /// All folders of a store share one place because nothing needs to tell them apart.
    std::string place() override {
        if (!place_)
            place_ = storeId();
        return *place_;
    }
    bool holdsMail() override { return folder_.number("DefaultItemType") == kMailItemType; }
    bool isSentMail() override {
        return entryId() == folder_.object("Session", "the session")
                                .object("GetDefaultFolder", kFolder, {variantOf(kSentMail)})
                                .text("EntryID");
    }
    std::unique_ptr<MailFolders> folders() override {
        const std::string own = place();
        return openFolders(folder_, addresses_,
                           own.empty() || own.ends_with('/') ? own : own + "/");
    }
    int itemCount() override { return items().number("Count"); }
    std::shared_ptr<MailItem> mailItem(int index) override {
        return openMailItem(items().object("Item", "an item", {variantOf(index)}), addresses_);
    }

 private:
    Dispatch items() const { return folder_.object("Items", "the items"); }

    /// Empty when the mail client does not say; such stores share a date.
    std::string storeId() const {
        try {
            return folder_.text("StoreID");
        } catch (const Error&) {
            return {};
        }
    }

    Dispatch folder_;
    std::shared_ptr<DirectoryAddresses> addresses_;
    std::optional<std::string> place_;
};

/// Keeps one collection, because each has its own position.
class AutomationFolders : public MailFolders {
 public:
    AutomationFolders(Dispatch folders, std::shared_ptr<DirectoryAddresses> addresses,
                      std::optional<std::string> place)
        : folders_(std::move(folders)),
          addresses_(std::move(addresses)),
          place_(std::move(place)) {}

    std::unique_ptr<MailFolder> next() override {
        std::optional<Dispatch> folder =
            folders_.objectIfAny(isUnderWay_ ? "GetNext" : "GetFirst", kFolder);
        isUnderWay_ = true;
        if (!folder)
            return nullptr;
        return std::make_unique<AutomationFolder>(std::move(*folder), addresses_, place_);
    }

 private:
    Dispatch folders_;
    bool isUnderWay_ = false;
    std::shared_ptr<DirectoryAddresses> addresses_;
    const std::optional<std::string> place_;
};

std::unique_ptr<MailFolders> openFolders(const Dispatch& parent,
                                         std::shared_ptr<DirectoryAddresses> addresses,
                                         std::optional<std::string> place) {
    return std::make_unique<AutomationFolders>(parent.object("Folders", "the folders"),
                                               std::move(addresses), std::move(place));
}

class AutomationSession : public MailSession {
 public:
    explicit AutomationSession(Dispatch nameSpace) : nameSpace_(std::move(nameSpace)) {}

    std::unique_ptr<MailFolders> folders() override {
        return openFolders(nameSpace_, addresses_, std::nullopt);
    }

    /// Compares folders by id, because the client returns another object each time.
    bool isDefaultFolder(MailFolder& folder, DefaultFolder kind) override {
        const Dispatch wanted =
            nameSpace_.object("GetDefaultFolder", kFolder, {variantOf(numberOf(kind))});
        return dynamic_cast<AutomationFolder&>(folder).entryId() == wanted.text("EntryID");
    }

    std::vector<std::string> ownAddresses() override {
        const Dispatch accounts = nameSpace_.object("Accounts", "the accounts");
        std::vector<std::string> addresses;
        for (int index = 1; index <= accounts.number("Count"); ++index)
            addresses.push_back(
                accounts.object("Item", "an account", {variantOf(index)}).text("SmtpAddress"));
        return addresses;
    }

 private:
    Dispatch nameSpace_;
    std::shared_ptr<DirectoryAddresses> addresses_ = std::make_shared<DirectoryAddresses>();
};

}  // namespace

std::unique_ptr<MailSession> openSession(Dispatch nameSpace) {
    return std::make_unique<AutomationSession>(std::move(nameSpace));
}

}  // namespace pelk
