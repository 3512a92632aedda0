#include "views/contacts_tree.h"

#include <string>

#include "views/contact_text.h"
#include "views/fast_tree.h"
#include "views/strength.h"

namespace pelk {

void fillContactsTree(TreeView& tree, const Database& database) {
    fastClear(tree);
    const RedrawSuspension suspension(tree);
    TreeModel& model = tree.model();
    database.forEachContact([&model](const Contact& contact) {
        model.add(addContactNode(model, model.root(), contact));
    });
    model.sortChildren(model.root());
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
    const RedrawSuspension suspension(tree);
    TreeModel& model = tree.model();
    model.removeChildren(node);
    const Thresholds thresholds = database.thresholds();
    for (const Relation& relation : database.relationsOf(contactId)) {
        const int relatedId = relation.partnerOf(contactId);
        TreeNode& child = model.add(node, database.nameOf(relatedId));
        model.setTag(child, relatedId);
        showStrength(model, child, relation.weight, strongest, thresholds);
    }
    model.sortChildren(node);
}

void showStrength(TreeModel& tree, TreeNode& node, double weight, std::int64_t strongest,
                  const Thresholds& thresholds) {
    const Strength strength = strengthOf(roundToInteger(weight), strongest, thresholds);
    tree.setImage(node, imageOf(strength));
    tree.setColor(node, colorOf(strength));
}

}  // namespace pelk
