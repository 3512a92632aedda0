#include "mailstore/imap/imap_session.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "mailstore/imap/mailbox_messages.h"
#include "mailstore/imap/mailbox_tree.h"
#include "mailstore/mail_text.h"
#include "mailstore/message_time.h"
#include "mailstore/special_folder.h"

namespace pelk {
namespace {

/// How many seconds the clocks of server and user may differ. Two hours cover the hour that a clock
/// repeats when summer time ends, and a time zone that is wrong by an hour, plus some minutes.
constexpr int kClockTolerance = 2 * 60 * 60;

/// The state that the folders share. It lives as long as the session or any folder.
struct Shared {
    Shared(const ImapAccount& account, ImapServerOptions options)
        : server(account, std::move(options)),
          settled(
              localTime(NotedTime{std::time(nullptr) - kClockTolerance}).value_or(LocalTime{})) {}

    ImapServer server;
    /// A mark may include only messages that came before this time, whatever the clocks say.
    const LocalTime settled;
    /// The marks by the place of their folder.
    std::map<std::string, FolderMark> marks;
};

/// A message up to the mark, which an earlier scan has counted or skipped.
class CountedItem : public MailItem {
 public:
    CountedItem(std::shared_ptr<MailboxMessages> messages, std::size_t index)
        : messages_(std::move(messages)), index_(index) {}

    LocalTime creationTime() override { return {}; }
    std::uint64_t fingerprint() override { return messages_->fingerprintOfCounted(index_); }
    std::optional<MailPerson> replyRecipient() override { return std::nullopt; }
    int recipientCount() override { return 0; }
    MailPerson recipient(int) override { throw Error("The e-mail has not been read."); }

 private:
    const std::shared_ptr<MailboxMessages> messages_;
    const std::size_t index_;
};

using Nodes = std::vector<std::shared_ptr<MailboxNode>>;

std::unique_ptr<MailFolders> walk(std::shared_ptr<Shared> shared, std::function<Nodes()> list);

class ImapFolder : public StoredFolder {
 public:
    ImapFolder(std::shared_ptr<Shared> shared, std::shared_ptr<MailboxNode> node)
        : shared_(std::move(shared)), node_(std::move(node)) {}

    const MailboxNode& node() const { return *node_; }
    bool isOf(const Shared& session) const { return shared_.get() == &session; }

    std::string name() override { return node_->name; }
    std::string place() override { return node_->place; }
    bool holdsMail() override { return true; }
    bool isSentMail() override { return node_->holdsSent; }
    int clockTolerance() override { return kClockTolerance; }
    std::unique_ptr<MailFolders> folders() override {
        return walk(shared_, [node = node_] { return node->folders; });
    }

    int itemCount() override {
        constexpr std::size_t kMost = std::numeric_limits<int>::max();
        return node_->mailbox ? static_cast<int>(std::min(messages().count(), kMost)) : 0;
    }

    std::shared_ptr<MailItem> mailItem(int index) override {
        const std::size_t wanted = requireItem(index);
        if (wanted < messages().countedBefore())
            return std::make_shared<CountedItem>(messages_, wanted);
        ImapItem item = messages().message(wanted);
        if (item.kind != ItemKind::Mail)
            throw NotAMailItem();
        return std::move(item.message);
    }

    MessageSummary summary(int index) override {
        const std::size_t wanted = requireItem(index);
        if (wanted < messages().countedBefore())
            return {};
        const ImapItem item = messages().message(wanted);
        const std::optional<MailPerson> from = item.message->replyRecipient();
        return {from ? from->name : std::string(),
                decodeText(item.message->header().first("Subject")), item.message->creationTime(),
                item.kind};
    }

    void noteRead() override {
        if (messages_ && messages_->numbering() != 0)
            shared_->marks[node_->place] = {node_->place, messages_->numbering(),
                                            messages_->settledUid()};
    }

 private:
    MailboxMessages& messages() {
        if (!messages_) {
            const auto mark = shared_->marks.find(node_->place);
            messages_ = std::make_shared<MailboxMessages>(
                shared_->server, *node_,
                mark == shared_->marks.end() ? std::nullopt : std::optional(mark->second),
                shared_->settled);
        }
        return *messages_;
    }

    std::size_t requireItem(int index) {
        if (index < 1 || index > itemCount())
            throw Error("Item " + std::to_string(index) + " of " + node_->name +
                        " does not exist.");
        return static_cast<std::size_t>(index) - 1;
    }

    const std::shared_ptr<Shared> shared_;
    const std::shared_ptr<MailboxNode> node_;
    std::shared_ptr<MailboxMessages> messages_;
};

/// Calls `list` only when the walk begins.
class ImapFolders : public MailFolders {
 public:
    ImapFolders(std::shared_ptr<Shared> shared, std::function<Nodes()> list)
        : shared_(std::move(shared)), list_(std::move(list)) {}

    std::unique_ptr<MailFolder> next() override {
        if (!nodes_)
            nodes_ = list_();
        return next_ < nodes_->size() ? std::make_unique<ImapFolder>(shared_, (*nodes_)[next_++])
                                      : nullptr;
    }

 private:
    const std::shared_ptr<Shared> shared_;
    const std::function<Nodes()> list_;
    std::optional<Nodes> nodes_;
    std::size_t next_ = 0;
};

std::unique_ptr<MailFolders> walk(std::shared_ptr<Shared> shared, std::function<Nodes()> list) {
    return std::make_unique<ImapFolders>(std::move(shared), std::move(list));
}

class ImapSession : public MailSession {
 public:
    ImapSession(const ImapAccount& account, ImapServerOptions server, MailStoreOptions options)
        : options_(std::move(options)),
          shared_(std::make_shared<Shared>(account, std::move(server))),
          store_(findStore()) {}

    std::unique_ptr<MailFolders> folders() override {
        return walk(shared_, [store = store_] { return Nodes{store}; });
    }

    std::vector<DefaultFolder> leftOutFolders() override { return leftOutFoldersOf(options_); }

    std::vector<std::string> ownAddresses() override {
        std::vector<std::string> addresses = options_.ownAddresses;
        if (const std::string& user = shared_->server.account().user;
            user.find('@') != std::string::npos)
            addresses.push_back(user);
        return addresses;
    }

    bool isDefaultFolder(MailFolder& folder, DefaultFolder kind) override {
        const auto* const own = dynamic_cast<ImapFolder*>(&folder);
        if (own == nullptr || !own->isOf(*shared_) || own->node().isStore)
            return false;
        const MailboxNode& node = own->node();
        return named_.contains(kind) ? node.purpose == kind
                                     : node.atTop && isFolderCalled(options_, node.name, kind);
    }

    void setMarks(const std::vector<FolderMark>& marks) override {
        for (const FolderMark& mark : marks)
            shared_->marks[mark.place] = mark;
    }

    std::vector<FolderMark> marks() override {
        std::vector<FolderMark> marks;
        for (const auto& [place, mark] : shared_->marks)
            if (mark.last > 0)
                marks.push_back(mark);
        return marks;
    }

 private:
    std::shared_ptr<MailboxNode> findStore() {
        const ImapAccount& account = shared_->server.account();
        std::shared_ptr<MailboxNode> all = mailboxTree(
            shared_->server.with([](ImapConnection& connection) { return connection.list(); }),
            account);
        notePurposes(*all);
        return account.folder.empty() ? all : namedMailbox(*all, account.folder);
    }

    void notePurposes(const MailboxNode& node) {
        if (node.purpose)
            named_.insert(*node.purpose);
        for (const auto& inner : node.folders)
            notePurposes(*inner);
    }

    const MailStoreOptions options_;
    const std::shared_ptr<Shared> shared_;
    /// The kinds of default folders that the server declares.
    std::set<DefaultFolder> named_;
    const std::shared_ptr<MailboxNode> store_;
};

}  // namespace

std::unique_ptr<MailSession> openImapSession(const ImapAccount& account, ImapServerOptions server,
                                             MailStoreOptions options) {
    return std::make_unique<ImapSession>(account, std::move(server), std::move(options));
}

}  // namespace pelk
