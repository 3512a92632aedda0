#include "views/domains_tree.h"

#include <vector>

#include "views/domains.h"
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

/// The texts of the node and of what it stands under, which are the domain's labels from left to
/// right.
std::vector<std::string> pathOf(const TreeNode& node) {
    std::vector<std::string> texts;
    for (const TreeNode* step = &node; step->parent() != nullptr; step = step->parent())
        texts.push_back(step->text());
    return texts;
}

}  // namespace

void fillDomainsTree(TreeView& tree, const Database& database, const Language& language) {
    fastClear(tree);
    const RedrawSuspension suspension(tree);
    TreeModel& model = tree.model();
    for (const std::string& label : topLevelDomains(database, language))
        model.setKey(addLabel(model, model.root(), label), label);
}

void expandDomain(TreeView& tree, TreeNode& node, const Database& database,
                  const Language& language) {
    if (isFilled(node))
        return;
    const RedrawSuspension suspension(tree);
    TreeModel& model = tree.model();
    model.removeChildren(node);
    for (const DomainEntry& entry : entriesBelow(database, language, pathOf(node))) {
        if (entry.isAddress())
            addAddress(model, node, entry);
        else
            addLabel(model, node, entry.text);
    }
    model.sortChildren(node);
}

std::string domainOf(const TreeNode& node) {
    const std::vector<std::string> path = pathOf(node);
    std::string domain =
        isAddressLeaf(node) ? path[0].substr(0, path[0].find(' ')) + "@" : path[0] + ".";
    for (std::size_t step = 1; step < path.size(); ++step)
        domain += path[step] + ".";
    domain.pop_back();
    return domain;
}

}  // namespace pelk
