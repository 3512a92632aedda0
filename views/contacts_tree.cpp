#include "views/contacts_tree.h"

#include <string>
#include <unordered_map>

#include "views/contact_text.h"
#include "views/fast_tree.h"
#include "views/relation_totals.h"
#include "views/strength.h"

namespace pelk {

void fillContactsTree(TreeView& tree, const Database& database) {
    fillContactsTree(tree, database, {database, {}, 0});
}

void fillContactsTree(TreeView& tree, const Database& database, const RelationView& view) {
    fastClear(tree);
    const RedrawSuspension suspension(tree);
    TreeModel& model = tree.model();
    database.forEachContact([&](const Contact& contact) {
        if (view.showsContact(contact.id))
            model.add(addContactNode(model, model.root(), contact));
    });
    if (view.isByName())
        model.sortChildren(model.root());
    else
        model.sortChildren(model.root(), [&view](const TreeNode& node) {
            return view.rankOfContact(std::get<int>(node.tag()));
        });
}

TreeNode& addContactNode(TreeModel& tree, TreeNode& parent, const Contact& contact) {
    TreeNode& node = tree.add(parent, describe(contact));
    tree.setKey(node, contactKey(contact.id));
    tree.setTag(node, contact.id);
    tree.setImage(node, TreeImage::Contact);
    return node;
}

void fillRelatedContacts(TreeView& tree, TreeNode& node, const Database& database, int contactId,
                         std::int64_t strongest) {
    fillRelatedContacts(tree, node, database, contactId, strongest, {database, {}, strongest});
}

void fillRelatedContacts(TreeView& tree, TreeNode& node, const Database& database, int contactId,
                         std::int64_t strongest, const RelationView& view) {
    const RedrawSuspension suspension(tree);
    TreeModel& model = tree.model();
    model.removeChildren(node);
    const Thresholds thresholds = database.thresholds();
    std::unordered_map<const TreeNode*, std::int64_t> ranks;
    for (const Relation& relation : database.relationsOf(contactId)) {
        const int relatedId = relation.partnerOf(contactId);
        if (!view.shows(relation.weight) || view.hides(relatedId))
            continue;
        TreeNode& child = model.add(node, database.nameOf(relatedId));
        model.setTag(child, relatedId);
        showStrength(model, child, relation.weight, strongest, thresholds);
        if (!view.isByName())
            ranks.emplace(&child, view.rankOf(relation.weight));
    }
    if (view.isByName())
        model.sortChildren(node);
    else
        model.sortChildren(node, [&ranks](const TreeNode& child) { return ranks.at(&child); });
}

std::string contactNodeDetail(const TreeNode& node, const Database& database) {
    const int* const id = std::get_if<int>(&node.tag());
    if (id == nullptr)
        return {};
    return node.isTopLevel() ? contactDetail(database, *id)
                             : relatedDetail(database, std::get<int>(node.parent()->tag()), *id);
}

void showStrength(TreeModel& tree, TreeNode& node, double weight, std::int64_t strongest,
                  const Thresholds& thresholds) {
    const Strength strength = strengthOf(roundToInteger(weight), strongest, thresholds);
    tree.setImage(node, imageOf(strength));
    tree.setColor(node, colorOf(strength));
}

}  // namespace pelk
