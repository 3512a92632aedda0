#pragma once
// A mail client in memory, built by hand in a test.

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/mail_client.h"
#include "scan/scanner.h"

namespace pelk {

/// An item of a folder. `isMail` is false for one that is not an e-mail. Reading a recipient or
/// sender without an address fails, and so does reading an item that `refuses`.
struct MemoryItem {
    LocalTime created{2020, 1, 1, 0, 0, 0};
    MailPerson sender;
    std::vector<MailPerson> recipients;
    bool isMail = true;
    bool hasSender = true;
    std::uint64_t print = 0;
    std::string id = {};
    bool isDatedAhead = false;
    std::optional<DefaultFolder> label = {};
    bool refuses = false;
    std::optional<LocalTime> sent = {};
    MailAutomation automation = {};
};

struct MemoryFolder {
    std::string name;
    std::vector<MemoryItem> items;
    std::vector<MemoryFolder> folders;
    bool holdsMail = true;
    /// Reading the items fails; `refusesFolders` and `refusesName` do the same for folders and
    /// name.
    bool refuses = false;
    /// For a top-level folder; other folders have places made of names.
    std::string place = {};
    bool refusesFolders = false;
    bool refusesName = false;
    int clockTolerance = 0;
    bool isSentMail = false;
};

class MemoryMailClient : public MailClient {
 public:
    std::vector<MemoryFolder> stores;
    bool refusesSession = false;
    bool refusesDefaultFolders = false;
    std::vector<std::string> ownAddresses;

    struct Button {
        std::string caption;
        std::string tag;
        std::function<void()> clicked;
    };
    /// The buttons in the menu, with "bar/caption/tag" of their pop-ups.
    std::list<Button> buttons;
    std::vector<std::string> popups;
    /// The last line that it was told.
    std::string told;

    Button* button(const std::string& caption) {
        for (Button& button : buttons)
            if (button.caption == caption)
                return &button;
        return nullptr;
    }

    std::unique_ptr<MailSession> session() override;
    std::unique_ptr<CommandPopup> addPopup(std::string_view bar, std::string_view caption,
                                           std::string_view tag) override;
    void tell(const std::string& text) override { told = text; }
};

/// Returns a person whose name is the local part of the address.
inline MailPerson person(const std::string& address) {
    return {address.substr(0, address.find('@')), address};
}

inline MemoryItem mail(const std::string& from, const std::vector<std::string>& to,
                       LocalTime created = {2020, 1, 1, 0, 0, 0}) {
    MemoryItem item{created, person(from), {}};
    for (const std::string& address : to)
        item.recipients.push_back(person(address));
    return item;
}

/// Records which folders a scan reads, and what it reports.
class FolderLog : public ScanProgress {
 public:
    std::vector<std::string> folders;
    std::vector<std::string> notices;
    void noticed(const std::string& notice) override { notices.push_back(notice); }
    void folderStarted(const std::string& name) override { folders.push_back(name); }
    void itemsCounted(int) override {}
    void itemStarted(int) override {}
};

inline MemoryItem report() {
    MemoryItem item;
    item.isMail = false;
    return item;
}

}  // namespace pelk
