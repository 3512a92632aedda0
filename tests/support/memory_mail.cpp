#include "tests/support/memory_mail.h"

namespace pelk {
namespace {

MailPerson requireAddress(const MailPerson& person) {
    if (person.address.empty())
        throw AddressRefused("The address is not available.");
    return person;
}

class Item : public MailItem {
 public:
    explicit Item(MemoryItem item) : item_(std::move(item)) {}
    LocalTime creationTime() override { return item_.created; }
    std::optional<LocalTime> sentTime() override { return item_.sent; }
    bool isDatedAhead() override { return item_.isDatedAhead; }
    std::string messageId() override { return item_.id; }
    std::uint64_t fingerprint() override { return item_.print; }
    std::optional<DefaultFolder> labelledFolder() override { return item_.label; }
    std::optional<MailPerson> replyRecipient() override {
        return item_.hasSender ? std::optional(requireAddress(item_.sender)) : std::nullopt;
    }
    int recipientCount() override { return static_cast<int>(item_.recipients.size()); }
    MailPerson recipient(int index) override {
        return requireAddress(item_.recipients.at(static_cast<std::size_t>(index) - 1));
    }
    MailAutomation automation() override { return item_.automation; }

 private:
    MemoryItem item_;
};

std::unique_ptr<MailFolders> walk(const std::vector<MemoryFolder>& folders,
                                  const std::string& above);

class Folder : public MailFolder {
 public:
    Folder(const MemoryFolder& folder, const std::string& above)
        : folder_(folder), place_(above.empty() ? folder.place : above + "/" + folder.name) {}
    std::string name() override {
        if (folder_.refusesName)
            throw Error("The name is not available.");
        return folder_.name;
    }
    std::string place() override { return place_; }
    bool holdsMail() override { return folder_.holdsMail; }
    bool isSentMail() override { return folder_.isSentMail; }
    int clockTolerance() override { return folder_.clockTolerance; }
    std::unique_ptr<MailFolders> folders() override {
        if (folder_.refusesFolders)
            throw Error("The folders in " + folder_.name + " were refused.");
        return walk(folder_.folders, place_);
    }
    int itemCount() override {
        if (folder_.refuses)
            throw Error("Access to the folder " + folder_.name + " was refused.");
        return static_cast<int>(folder_.items.size());
    }
    std::shared_ptr<MailItem> mailItem(int index) override {
        const MemoryItem& item = folder_.items.at(static_cast<std::size_t>(index) - 1);
        if (!item.isMail)
            throw NotAMailItem();
        if (item.refuses)
            throw Error("The item cannot be opened.");
        return std::make_shared<Item>(item);
    }

 private:
    const MemoryFolder& folder_;
    const std::string place_;
};

class Folders : public MailFolders {
 public:
    Folders(const std::vector<MemoryFolder>& folders, std::string above)
        : folders_(folders), above_(std::move(above)) {}
    std::unique_ptr<MailFolder> next() override {
        return at_ < folders_.size() ? std::make_unique<Folder>(folders_[at_++], above_) : nullptr;
    }

 private:
    const std::vector<MemoryFolder>& folders_;
    const std::string above_;
    std::size_t at_ = 0;
};

std::unique_ptr<MailFolders> walk(const std::vector<MemoryFolder>& folders,
                                  const std::string& above) {
    return std::make_unique<Folders>(folders, above);
}

class Session : public MailSession {
 public:
    explicit Session(const MemoryMailClient& client) : client_(client) {}
    std::unique_ptr<MailFolders> folders() override { return walk(client_.stores, {}); }
    std::vector<std::string> ownAddresses() override { return client_.ownAddresses; }
    bool isDefaultFolder(MailFolder& folder, DefaultFolder kind) override {
        if (client_.refusesDefaultFolders)
            throw Error("There is no such folder.");
        return folder.name() == (kind == DefaultFolder::Outbox         ? "Outbox"
                                 : kind == DefaultFolder::DeletedItems ? "Deleted Items"
                                 : kind == DefaultFolder::Drafts       ? "Drafts"
                                                                       : "Junk");
    }

 private:
    const MemoryMailClient& client_;
};

using Buttons = std::list<MemoryMailClient::Button>;

class MenuButton : public CommandButton {
 public:
    MenuButton(Buttons& buttons, Buttons::iterator self) : buttons_(buttons), self_(self) {}
    void remove() override { buttons_.erase(self_); }

 private:
    Buttons& buttons_;
    Buttons::iterator self_;
};

class Popup : public CommandPopup {
 public:
    explicit Popup(Buttons& buttons) : buttons_(buttons) {}
    std::unique_ptr<CommandButton> addButton(std::string_view caption, std::string_view tag,
                                             std::function<void()> clicked) override {
        buttons_.push_back({std::string(caption), std::string(tag), std::move(clicked)});
        return std::make_unique<MenuButton>(buttons_, std::prev(buttons_.end()));
    }

 private:
    Buttons& buttons_;
};

}  // namespace

std::unique_ptr<MailSession> MemoryMailClient::session() {
    if (refusesSession)
        throw Error("The mail client refuses access to its mail.");
    return std::make_unique<Session>(*this);
}

std::unique_ptr<CommandPopup> MemoryMailClient::addPopup(std::string_view bar,
                                                         std::string_view caption,
                                                         std::string_view tag) {
    std::string popup;
    for (const std::string_view part : {bar, caption, tag})
        popup += (popup.empty() ? "" : "/") + std::string(part);
    popups.push_back(popup);
    return std::make_unique<Popup>(buttons);
}

}  // namespace pelk
