#include "mailstore/mail_store.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <optional>

#include "mailstore/body_text.h"
#include "mailstore/gmail_labels.h"
#include "mailstore/mail_text.h"
#include "mailstore/named_stores.h"
#include "mailstore/read_ahead.h"
#include "mailstore/special_folder.h"
#include "mailstore/stored_messages.h"
#include "platform/error.h"

namespace pelk {
namespace {

using PlaceList = std::vector<FolderPlace>;

std::unique_ptr<MailFolders> walk(std::function<PlaceList()> list);

std::string noteOn(const BodyText& body) {
    if (body.text.empty())
        return "This message has no text that can be shown here.";
    return body.isCut ? "The text goes on. Only its beginning is shown." : "";
}

MessageText messageText(const MessagePlace& place) {
    const MessageHeader header = readHeader(place);
    BodyText body = readBodyText(place, header);
    MessageText message{{}, {}, noteOn(body)};
    message.text = std::move(body.text);
    for (const char* const name : {"From", "To", "Cc", "Date", "Subject"})
        if (std::string value = decodeText(header.first(name)); !value.empty())
            message.fields.emplace_back(name, std::move(value));
    return message;
}

class DiskFolder : public StoredFolder {
 public:
    explicit DiskFolder(FolderPlace place) : place_(std::move(place)) {}

    const FolderPlace& location() const { return place_; }

    std::string name() override { return place_.name; }
    std::string place() override { return place_.canonical; }
    bool holdsMail() override { return true; }
    bool isSentMail() override { return isSentMailName(place_.name); }
    std::unique_ptr<MailFolders> folders() override {
        return walk([place = place_, labelled = labelled_] {
            PlaceList list = listSubfolders(place);
            PlaceList labels = labelsOf(place, labelled);
            list.insert(list.end(), std::make_move_iterator(labels.begin()),
                        std::make_move_iterator(labels.end()));
            return list;
        });
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

    MessageText read(int index) override {
        requireItem(index);
        return messageText(messages()->place(static_cast<std::size_t>(index) - 1));
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
                    messages_ = openMboxOrLabel();
                    break;
                case FolderPlace::Kind::SingleMessage:
                    messages_ = openSingleMessage(place_.path);
                    break;
                case FolderPlace::Kind::Directory:
                    messages_ = openDirectory(place_.path);
                    break;
                case FolderPlace::Kind::Geary:
                    messages_ = openGeary();
                    break;
                case FolderPlace::Kind::Unknown:
                    throw UnknownMailFormat(place_.path);
            }
        }
        return messages_.get();
    }

    std::unique_ptr<StoredMessages> openMboxOrLabel() {
        labelled_ = place_.labelled ? place_.labelled : LabelledMbox::openIfLabelled(place_.path);
        return labelled_ ? labelled_->messagesOf(place_.label) : openMbox(place_.path);
    }

    /// Opens the mbox if `labelled` is null. A fault is left to `messages`.
    static PlaceList labelsOf(const FolderPlace& place,
                              std::shared_ptr<const LabelledMbox> labelled) {
        if (place.kind != FolderPlace::Kind::Mbox || place.labelled)
            return {};
        try {
            if (!labelled)
                labelled = LabelledMbox::openIfLabelled(place.path);
            return labelled ? listLabels(place, labelled) : PlaceList();
        } catch (const Error&) {
            return {};
        }
    }

    std::unique_ptr<StoredMessages> openGeary() const {
        // Its folders are not listed, so the account must not pass as an empty folder later.
        if (!place_.geary)
            throw Error(place_.fault);
        return place_.geary->messages(place_.gearyId);
    }

    void requireItem(int index) {
        if (index < 1 || index > itemCount())
            throw Error(describe(index) + " does not exist.");
    }

    const FolderPlace place_;
    std::unique_ptr<StoredMessages> messages_;
    /// The content of an mbox with labels, once `messages` has opened it.
    std::shared_ptr<const LabelledMbox> labelled_;
    /// Only for those that are taken as items, of which a scan takes all.
    std::optional<ReadAhead> ahead_;
};

/// Looks for the folders only when the walk begins.
class DiskFolders : public MailFolders {
 public:
    explicit DiskFolders(std::function<PlaceList()> list) : list_(std::move(list)) {}

    std::unique_ptr<MailFolder> next() override {
        if (!places_)
            places_ = list_();
        return next_ < places_->size() ? std::make_unique<DiskFolder>((*places_)[next_++])
                                       : nullptr;
    }

 private:
    const std::function<PlaceList()> list_;
    std::optional<PlaceList> places_;
    std::size_t next_ = 0;
};

std::unique_ptr<MailFolders> walk(std::function<PlaceList()> list) {
    return std::make_unique<DiskFolders>(std::move(list));
}

class DiskSession : public MailSession {
 public:
    DiskSession(const std::vector<std::string>& paths, MailStoreOptions options)
        : options_(std::move(options)), named_(paths) {}

    std::unique_ptr<MailFolders> folders() override {
        return walk([stores = named_.stores()] { return stores; });
    }

    std::vector<DefaultFolder> leftOutFolders() override { return leftOutFoldersOf(options_); }
    std::vector<std::string> ownAddresses() override { return options_.ownAddresses; }

    bool isDefaultFolder(MailFolder& folder, DefaultFolder kind) override {
        const auto* const own = dynamic_cast<DiskFolder*>(&folder);
        if (own == nullptr)
            return false;
        const FolderPlace& place = own->location();
        if (place.labelled)
            return folderOfLabel(place.label) == kind;
        if (named_.isNamed(place))
            return false;
        const auto known = options_.purposes.find(purposeKey(place.canonical));
        return (known != options_.purposes.end() && known->second == kind) ||
               (place.atTop && isFolderCalled(options_, place.name, kind));
    }

 private:
    const MailStoreOptions options_;
    const NamedStores named_;
};

}  // namespace

MessageText StoredFolder::read(int index) {
    const MessageSummary found = summary(index);
    return {{{"From", found.from}, {"Subject", found.subject}},
            {},
            "The text of a message on a server is not fetched."};
}

std::vector<DefaultFolder> leftOutFoldersOf(const MailStoreOptions& options) {
    std::vector<DefaultFolder> kinds = {DefaultFolder::Outbox, DefaultFolder::DeletedItems};
    if (!options.countDrafts)
        kinds.push_back(DefaultFolder::Drafts);
    if (!options.countJunk)
        kinds.push_back(DefaultFolder::Junk);
    return kinds;
}

bool isFolderCalled(const MailStoreOptions& options, const std::string& name, DefaultFolder kind) {
    const std::vector<std::string>& names =
        kind == DefaultFolder::Outbox ? options.outboxNames : options.deletedNames;
    if (names.empty() || kind == DefaultFolder::Drafts || kind == DefaultFolder::Junk)
        return folderCalled(name) == kind;
    return std::any_of(names.begin(), names.end(),
                       [&](const std::string& one) { return foldCase(one) == foldCase(name); });
}

std::unique_ptr<MailSession> openMailSession(const std::vector<std::string>& paths,
                                             MailStoreOptions options) {
    return std::make_unique<DiskSession>(paths, std::move(options));
}

}  // namespace pelk
