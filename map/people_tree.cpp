#include "map/people_tree.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>

#include "map/group_names.h"
#include "map/palette.h"
#include "platform/readable_color.h"
#include "views/contact_text.h"
#include "views/fast_tree.h"
#include "views/relation_totals.h"

namespace pelk {
namespace {

/// Returns the contact of a person's node; 0 for a group.
int personOf(const TreeNode& node) {
    const int* const id = std::get_if<int>(&node.tag());
    return id == nullptr ? 0 : *id;
}

/// Returns the name of a group's node.
const std::string& groupOf(const TreeNode& node) {
    return std::get<std::string>(node.tag());
}

/// Returns the colour of a group, dark enough for a text on paper. On other backgrounds the toolkit
/// makes it readable.
Color textColorOf(std::uint32_t group) {
    constexpr Color kPaper{250, 250, 250};
    return readableColor(lightPalette().ofGroup(group), kPaper);
}

/// Returns the numbers of all people, those with most e-mails first. All their e-mails count, as
/// the tree shows them, also those with people who are not in the picture.
std::vector<std::uint32_t> strongestFirst(const Graph& graph, const Database& database) {
    std::vector<std::int64_t> mails;
    for (const GraphPerson& person : graph.people)
        mails.push_back(totalsOf(database, person.contact.id).mails);
    std::vector<std::uint32_t> order(mails.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&mails](std::uint32_t a, std::uint32_t b) { return mails[a] > mails[b]; });
    return order;
}

}  // namespace

PeopleTree::PeopleTree(TreeView& tree, const Database* const& database)
    : tree_(tree), model_(tree.model()), database_(database) {
    tree_.onExpand = [this](TreeNode& node) { expanded_.insert(groupOf(node)); };
    tree_.onCollapse = [this](TreeNode& node) { expanded_.erase(groupOf(node)); };
    tree_.onSelect = [this](TreeNode& node) { report(node); };
    tree_.onActivate = [this](TreeNode& node) {
        if (const int id = personOf(node); id != 0 && onActivate)
            onActivate(id);
    };
    tree_.detailOf = [this](const TreeNode& node) {
        const int id = personOf(node);
        return id == 0 ? std::string() : counted(totalsOf(*database_, id).mails, "e-mail");
    };
}

void PeopleTree::fill(const Arrangement& arrangement) {
    const int person = selected();
    fastClear(tree_);
    {
        const RedrawSuspension suspension(tree_);
        addAll(arrangement);
    }
    expandAgain();
    select(person);
}

void PeopleTree::addAll(const Arrangement& arrangement) {
    const std::vector<std::uint32_t> order = strongestFirst(arrangement.graph, *database_);
    const auto contactOf = [&arrangement](std::uint32_t person) -> const Contact& {
        return arrangement.graph.people[person].contact;
    };
    for (const std::uint32_t person : order)
        if (arrangement.groups[person] == kNoGroup)
            addPerson(model_.root(), contactOf(person));
    const std::vector<TreeNode*> groups = addGroups(arrangement);
    for (const std::uint32_t person : order)
        if (arrangement.groups[person] != kNoGroup)
            addPerson(*groups[arrangement.groups[person]], contactOf(person));
}

std::vector<TreeNode*> PeopleTree::addGroups(const Arrangement& arrangement) {
    const std::vector<std::string> names = groupNames(arrangement.graph, arrangement.groups);
    const std::vector<std::size_t> sizes = groupSizes(arrangement.groups);
    std::vector<TreeNode*> nodes;
    for (std::uint32_t group = 0; group < sizes.size(); ++group) {
        TreeNode& node =
            model_.add(model_.root(), names[group] + " (" + std::to_string(sizes[group]) + ")");
        model_.setTag(node, names[group]);
        model_.setImage(node, TreeImage::Many);
        model_.setColor(node, textColorOf(group));
        nodes.push_back(&node);
    }
    return nodes;
}

void PeopleTree::addPerson(TreeNode& parent, const Contact& contact) {
    TreeNode& node = model_.add(parent, labelOf(contact));
    model_.setKey(node, contactKey(contact.id));
    model_.setTag(node, contact.id);
    model_.setImage(node, TreeImage::Contact);
}

void PeopleTree::expandAgain() {
    for (TreeNode* const node : model_.root().children())
        if (personOf(*node) == 0 && expanded_.contains(groupOf(*node)))
            tree_.setExpanded(*node, true);
}

/// A group that selecting a person expands stays expanded, too.
void PeopleTree::select(int contactId) {
    TreeNode* const node = model_.find(contactKey(contactId));
    tree_.select(node);
    if (node != nullptr && !node->isTopLevel())
        expanded_.insert(groupOf(*node->parent()));
}

int PeopleTree::selected() {
    const TreeNode* const node = tree_.selected();
    return node == nullptr ? 0 : personOf(*node);
}

void PeopleTree::report(const TreeNode& node) const {
    if (const int id = personOf(node); id != 0) {
        if (onSelect)
            onSelect(id);
        return;
    }
    std::vector<int> people;
    for (const TreeNode* const person : node.children())
        people.push_back(personOf(*person));
    if (onSelectGroup)
        onSelectGroup(people);
}

}  // namespace pelk
