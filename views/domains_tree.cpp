#include "views/domains_tree.h"

#include <algorithm>

#include "views/email_parser.h"
#include "views/fast_tree.h"
#include "views/placeholder.h"
#include "views/relation_totals.h"

namespace pelk {
namespace {

constexpr Color kPlaceholderColor{192, 192, 192};

TreeNode& addLabel(TreeModel& tree, TreeNode& parent, const std::string& label) {
    TreeNode& node = tree.add(parent, label);
    tree.setImage(node, TreeImage::Many);
    tree.setColor(tree.add(node, kPlaceholderText), kPlaceholderColor);
    return node;
}

void addAddress(TreeModel& tree, TreeNode& parent, const DomainEntry& entry) {
    TreeNode& node = tree.add(parent, entry.text);
    tree.setImage(node, TreeImage::Contact);
    tree.setTag(node, entry.address);
}

/// Returns the labels of the domain that the node and its ancestors show, from left to right.
std::vector<std::string> pathOf(const TreeNode& node) {
    std::vector<std::string> labels;
    for (const TreeNode* step = &node; step->parent() != nullptr; step = step->parent())
        for (std::string& label : labelsOf(step->text()))
            labels.push_back(std::move(label));
    return labels;
}

/// Whether the node is the address, or a domain that the address is in.
bool leadsTo(const TreeNode& node, const MailAddress& address) {
    const std::string& local = address.parts.front();
    if (isAddressLeaf(node))
        return std::get<std::string>(node.tag()).starts_with(local + "@");
    const std::vector<std::string> labels = pathOf(node);
    return address.parts.size() > labels.size() &&
           std::equal(labels.rbegin(), labels.rend(), address.parts.rbegin());
}

}  // namespace

void DomainsTree::fill(const Database& database) {
    grouping_ = DomainGrouping::ByLabel;
    fastClear(tree_);
    const RedrawSuspension suspension(tree_);
    TreeModel& model = tree_.model();
    for (const std::string& label : topLevelDomains(addresses(database)))
        model.setKey(addLabel(model, model.root(), label), label);
}

void DomainsTree::fillByRegisteredName(const Database& database) {
    grouping_ = DomainGrouping::ByRegisteredName;
    fastClear(tree_);
    const RedrawSuspension suspension(tree_);
    TreeModel& model = tree_.model();
    for (const std::string& name : registeredDomains(addresses(database)))
        model.setKey(addLabel(model, model.root(), name), name);
    model.sortChildren(model.root());
}

std::string DomainsTree::detailOf(const TreeNode& node, const Database& database) {
    if (isAddressLeaf(node) || isPlaceholder(node))
        return {};
    addresses(database);
    const auto [count, isNew] = contactCounts_.try_emplace(domainOf(node));
    if (isNew)
        count->second = contactsBelow(all_, pathOf(node)).size();
    return counted(static_cast<std::int64_t>(count->second), "contact");
}

void DomainsTree::expand(TreeNode& node, const Database& database) {
    if (isFilled(node))
        return;
    const std::vector<DomainEntry> entries = entriesBelow(addresses(database), pathOf(node));
    const RedrawSuspension suspension(tree_);
    TreeModel& model = tree_.model();
    model.removeChildren(node);
    for (const DomainEntry& entry : entries) {
        if (entry.isAddress())
            addAddress(model, node, entry);
        else
            addLabel(model, node, entry.text);
    }
    model.sortChildren(node);
}

const std::vector<MailAddress>& DomainsTree::addresses(const Database& database) {
    if (database_ != &database || revision_ != database.revision())
        read(database);
    return addresses_;
}

void DomainsTree::hide(HiddenContacts::Ids ids) {
    if (hidden_ == ids)
        return;
    hidden_ = std::move(ids);
    database_ = nullptr;
}

void DomainsTree::read(const Database& database) {
    all_ = mailAddresses(database, language_);
    addresses_ = all_;
    std::erase_if(addresses_,
                  [this](const MailAddress& address) { return hidden_.contains(address.ownerId); });
    ++addressesRevision_;
    contactCounts_.clear();
    database_ = &database;
    revision_ = database.revision();
}

TreeNode* DomainsTree::leafOf(const MailAddress& address, const Database& database) {
    TreeNode* node = &tree_.model().root();
    while (node != nullptr && !isAddressLeaf(*node)) {
        if (!node->children().empty() && isPlaceholder(*node->children().front()))
            expand(*node, database);
        const std::vector<TreeNode*>& below = node->children();
        const auto next = std::find_if(below.begin(), below.end(), [&](const TreeNode* child) {
            return leadsTo(*child, address);
        });
        node = next == below.end() ? nullptr : *next;
    }
    return node;
}

std::string domainOf(const TreeNode& node) {
    if (isAddressLeaf(node))
        return std::get<std::string>(node.tag());
    std::string domain;
    for (const std::string& label : pathOf(node))
        domain += label + ".";
    domain.pop_back();
    return domain;
}

}  // namespace pelk
