#include "platform/desktop/mail/mail_store.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <optional>

#include "platform/desktop/mail/folder_place.h"
#include "platform/desktop/mail/mail_text.h"
#include "platform/desktop/mail/read_ahead.h"
#include "platform/desktop/mail/stored_messages.h"
#include "platform/error.h"

namespace pelk {
namespace {

using PlaceList = std::vector<FolderPlace>;

std::unique_ptr<MailFolders> walk(std::function<PlaceList()> list);

class DiskFolder : public StoredFolder {
 public:
    explicit DiskFolder(FolderPlace place) : place_(std::move(place)) {}

    std::string name() override { return place_.name; }
    int defaultItemType() override { return kMailItemType; }
    std::unique_ptr<MailFolders> folders() override {
        return walk([place = place_] { return listSubfolders(place); });
    }

    int itemCount() override {
        constexpr std::size_t kMost = std::numeric_limits<int>::max();
        return messages() ? static_cast<int>(std::min(messages()->count(), kMost)) : 0;
    }

    std::shared_ptr<MailItem> mailItem(int index) override {
        requireItem(index);
        if (!ahead_)
            ahead_.emplace(*messages());
        ListedMessage listed = ahead_->message(static_cast<std::size_t>(index) - 1);
        if (listed.kind != ItemKind::Mail)
            throw NotAMailItem();
        return std::move(listed.message);
    }

    MessageSummary summary(int index) override {
        requireItem(index);
        const ListedMessage listed = messages()->message(static_cast<std::size_t>(index) - 1);
        StoredMessage& message = *listed.message;
        return {message.author(), message.subject(), message.creationTime(), listed.kind};
    }

 private:
    std::string describe(int index) const {
        const std::string& folder = place_.path.empty() ? place_.name : place_.path;
        return "Item " + std::to_string(index) + " of " + folder;
    }

    /// Null for a folder that has no place for items.
    const StoredMessages* messages() {
        if (!messages_) {
            switch (place_.kind) {
                case FolderPlace::Kind::Empty:
                    break;
                case FolderPlace::Kind::Mbox:
                    messages_ = openMbox(place_.path);
                    break;
                case FolderPlace::Kind::SingleMessage:
                    messages_ = openSingleMessage(place_.path);
                    break;
                case FolderPlace::Kind::Directory:
                    messages_ = openDirectory(place_.path);
                    break;
            }
        }
        return messages_.get();
    }

    void requireItem(int index) {
        if (index < 1 || index > itemCount())
            throw Error(describe(index) + " does not exist.");
    }

    const FolderPlace place_;
    std::unique_ptr<StoredMessages> messages_;
    /// Only for those that are taken as items, of which a scan takes all.
    std::optional<ReadAhead> ahead_;
};

/// Looks for the folders only when the walk begins.
class DiskFolders : public MailFolders {
 public:
    explicit DiskFolders(std::function<PlaceList()> list) : list_(std::move(list)) {}

    std::unique_ptr<MailFolder> first() override {
        places_.clear();
        next_ = 0;
        places_ = list_();
        return next();
    }

    std::unique_ptr<MailFolder> next() override {
        return next_ < places_.size() ? std::make_unique<DiskFolder>(places_[next_++]) : nullptr;
    }

 private:
    const std::function<PlaceList()> list_;
    PlaceList places_;
    std::size_t next_ = 0;
};

std::unique_ptr<MailFolders> walk(std::function<PlaceList()> list) {
    return std::make_unique<DiskFolders>(std::move(list));
}

class DiskSession : public MailSession {
 public:
    DiskSession(const std::vector<std::string>& paths, MailStoreOptions options)
        : options_(std::move(options)) {
        if (options_.outboxNames.empty())
            options_.outboxNames = {"Outbox", "Unsent", "Unsent Messages"};
        if (options_.deletedNames.empty())
            options_.deletedNames = {"Trash", "Deleted", "Deleted Items", "Deleted Messages"};
        for (const std::string& path : paths)
            stores_.push_back(findStore(path));
    }

    std::unique_ptr<MailFolders> folders() override {
        return walk([stores = stores_] { return stores; });
    }

    bool isDefaultFolder(MailFolder& folder, DefaultFolder kind) override {
        if (kind != DefaultFolder::Outbox && kind != DefaultFolder::DeletedItems)
            return false;
        const std::vector<std::string>& names =
            kind == DefaultFolder::Outbox ? options_.outboxNames : options_.deletedNames;
        const std::string wanted = foldCase(folder.name());
        return std::any_of(names.begin(), names.end(),
                           [&](const std::string& name) { return foldCase(name) == wanted; });
    }

 private:
    MailStoreOptions options_;
    PlaceList stores_;
};

}  // namespace

std::unique_ptr<MailSession> openMailSession(const std::vector<std::string>& paths,
                                             MailStoreOptions options) {
    return std::make_unique<DiskSession>(paths, std::move(options));
}

}  // namespace pelk
