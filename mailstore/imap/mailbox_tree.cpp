#include "mailstore/imap/mailbox_tree.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

#include "mailstore/folder_name.h"
#include "mailstore/mail_text.h"
#include "mailstore/special_folder.h"
#include "platform/error.h"

namespace pelk {
namespace {

constexpr std::size_t kMostFolders = 100'000;
/// Limits recursion over the tree: the rest of a deeper path becomes a single name.
constexpr std::size_t kDeepest = 50;
constexpr std::string_view kInbox = "INBOX";

std::vector<std::string> namesOf(const ListedMailbox& mailbox) {
    std::vector<std::string> names;
    std::string_view rest = mailbox.name;
    while (mailbox.delimiter != 0 && names.size() < kDeepest) {
        const std::size_t end = rest.find(mailbox.delimiter);
        if (end == std::string_view::npos)
            break;
        if (end > 0)
            names.emplace_back(rest.substr(0, end));
        rest.remove_prefix(end + 1);
    }
    if (!rest.empty())
        names.emplace_back(rest);
    if (!names.empty() && equalsIgnoringCase(names.front(), kInbox))
        names.front() = kInbox;
    return names;
}

bool has(const ListedMailbox& mailbox, std::string_view attribute) {
    return std::any_of(mailbox.attributes.begin(), mailbox.attributes.end(),
                       [attribute](std::string_view one) {
                           if (one.starts_with('\\'))
                               one.remove_prefix(1);
                           return equalsIgnoringCase(one, attribute);
                       });
}

/// Uses the attributes of RFC 6154, section 2.
std::optional<DefaultFolder> purposeOf(const ListedMailbox& mailbox) {
    if (has(mailbox, "Trash"))
        return DefaultFolder::DeletedItems;
    if (has(mailbox, "Drafts"))
        return DefaultFolder::Drafts;
    if (has(mailbox, "Junk"))
        return DefaultFolder::Junk;
    return std::nullopt;
}

class Tree {
 public:
    explicit Tree(const ImapAccount& account) : top_(std::make_shared<MailboxNode>()) {
        top_->name = account.name();
        top_->place = account.place();
        top_->isStore = true;
        nodes_[{}] = top_;
    }

    void add(const ListedMailbox& mailbox) {
        const std::vector<std::string> names = namesOf(mailbox);
        if (names.empty())
            return;
        std::string path;
        MailboxNode* node = top_.get();
        for (const std::string& name : names)
            node = &child(*node, path, name);
        if (!has(mailbox, "Noselect") && !has(mailbox, "NonExistent"))
            node->mailbox = mailbox.name;
        node->purpose = purposeOf(mailbox);
        node->holdsAll = has(mailbox, "All");
        node->holdsSent = has(mailbox, "Sent") || isSentMailName(node->name);
    }

    std::shared_ptr<MailboxNode> result() && { return std::move(top_); }

 private:
    MailboxNode& child(MailboxNode& parent, std::string& path, const std::string& name) {
        path += '/' + placePart(name);
        std::shared_ptr<MailboxNode>& node = nodes_[path];
        if (!node) {
            if (nodes_.size() > kMostFolders)
                throw Error("The mail server lists more than " + std::to_string(kMostFolders) +
                            " folders.");
            node = std::make_shared<MailboxNode>();
            node->name = decodeText(decodeModifiedUtf7(name));
            node->place = parent.place + '/' + placePart(name);
            node->atTop = parent.isStore || (parent.atTop && isContainerName(parent.name));
            parent.folders.push_back(node);
        }
        return *node;
    }

    std::shared_ptr<MailboxNode> top_;
    std::unordered_map<std::string, std::shared_ptr<MailboxNode>> nodes_;
};

}  // namespace

std::shared_ptr<MailboxNode> mailboxTree(const std::vector<ListedMailbox>& listed,
                                         const ImapAccount& account) {
    std::vector<const ListedMailbox*> ordered;
    ordered.reserve(listed.size());
    for (const ListedMailbox& mailbox : listed)
        ordered.push_back(&mailbox);
    const auto rank = [](const ListedMailbox& mailbox) {
        return std::pair(!equalsIgnoringCase(mailbox.name.substr(0, kInbox.size()), kInbox),
                         std::string_view(mailbox.name));
    };
    std::sort(ordered.begin(), ordered.end(),
              [&rank](const auto* a, const auto* b) { return rank(*a) < rank(*b); });
    Tree tree(account);
    for (const ListedMailbox* mailbox : ordered)
        tree.add(*mailbox);
    return std::move(tree).result();
}

std::shared_ptr<MailboxNode> namedMailbox(const MailboxNode& account,
                                          const std::vector<std::string>& names) {
    const MailboxNode* inside = &account;
    std::shared_ptr<MailboxNode> found;
    std::string path;
    for (const std::string& name : names) {
        path += (path.empty() ? "" : "/") + name;
        const auto& folders = inside->folders;
        const auto at = std::find_if(folders.begin(), folders.end(), [&name](const auto& node) {
            return node->name == name || (node->atTop && equalsIgnoringCase(node->name, kInbox) &&
                                          equalsIgnoringCase(name, kInbox));
        });
        if (at == folders.end())
            throw Error("The mail server has no folder " + path + ".");
        found = *at;
        inside = found.get();
    }
    found->isStore = true;
    return found;
}

}  // namespace pelk
