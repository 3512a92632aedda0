#include "views/domains_tree.h"

#include "views/fast_tree.h"
#include "views/placeholder.h"

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

/// Returns the texts of the node and its ancestors, which are the domain's labels from left to
/// right.
std::vector<std::string> pathOf(const TreeNode& node) {
    std::vector<std::string> texts;
    for (const TreeNode* step = &node; step->parent() != nullptr; step = step->parent())
        texts.push_back(step->text());
    return texts;
}

}  // namespace

void DomainsTree::fill(const Database& database) {
    fastClear(tree_);
    const RedrawSuspension suspension(tree_);
    TreeModel& model = tree_.model();
    read(database);
    for (const std::string& label : topLevelDomains(addresses_))
        model.setKey(addLabel(model, model.root(), label), label);
}

void DomainsTree::expand(TreeNode& node, const Database& database) {
    if (isFilled(node))
        return;
    if (revision_ != database.revision())
        read(database);
    const std::vector<DomainEntry> entries = entriesBelow(addresses_, pathOf(node));
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

void DomainsTree::read(const Database& database) {
    addresses_ = mailAddresses(database, language_);
    revision_ = database.revision();
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
