#include "links/staircase.h"

#include <optional>
#include <string>

#include "views/contact_text.h"
#include "views/contacts_tree.h"

namespace pelk {

std::string describeContact(const Database& database, int id) {
    const std::optional<Contact> contact = database.contact(id);
    return contact ? describe(*contact)
                   : "Contact " + std::to_string(id) + " is no longer in the database.";
}

TreeNode& addStaircase(TreeView& tree, TreeNode& parent, const std::vector<int>& chain,
                       const Database& database, std::int64_t strongest, StairKeys keys) {
    TreeNode& first = tree.model().add(parent);
    addStairsBelow(tree, first, chain, database, strongest, keys);
    return first;
}

void addStairsBelow(TreeView& tree, TreeNode& first, const std::vector<int>& chain,
                    const Database& database, std::int64_t strongest, StairKeys keys) {
    TreeModel& model = tree.model();
    TreeNode* step = &first;
    for (std::size_t at = 0; at < chain.size(); ++at) {
        if (at > 0)
            step = &model.add(*step);
        if (keys == StairKeys::Contacts)
            model.setKey(*step, contactKey(chain[at]));
    }
    showChain(model, first, chain, database, strongest);
    setChainExpanded(tree, first, true);
}

void showChain(TreeModel& tree, TreeNode& first, const std::vector<int>& chain,
               const Database& database, std::int64_t strongest) {
    const Thresholds thresholds = database.thresholds();
    TreeNode* step = &first;
    for (std::size_t at = 0; at < chain.size(); ++at) {
        if (at > 0)
            step = step->children().front();
        tree.setText(*step, describeContact(database, chain[at]));
        const std::optional<Relation> relation =
            at > 0 ? database.relationOfPair(chain[at - 1], chain[at]) : std::nullopt;
        if (relation) {
            showStrength(tree, *step, relation->weight, strongest, thresholds);
        } else {
            tree.setImage(*step, TreeImage::Contact);
            tree.clearColor(*step);
        }
    }
}

void setChainExpanded(TreeView& tree, TreeNode& node, bool expanded) {
    for (TreeNode* step = &node; !step->children().empty(); step = step->children().front())
        tree.setExpanded(*step, expanded);
}

}  // namespace pelk
