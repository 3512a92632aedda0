#include "links/staircase.h"

#include <optional>
#include <string>

#include "views/contact_text.h"
#include "views/contacts_tree.h"

namespace pelk {
namespace {

std::string describeById(const Database& database, int id) {
    const std::optional<Contact> contact = database.contact(id);
    return contact ? describe(*contact)
                   : "Contact " + std::to_string(id) + " is no longer in the database.";
}

}  // namespace

TreeNode& addStaircase(TreeView& tree, TreeNode& parent, const std::vector<int>& chain,
                       const Database& database, std::int64_t strongest, StairKeys keys) {
    TreeModel& model = tree.model();
    const Thresholds thresholds = database.thresholds();
    TreeNode* step = &parent;
    TreeNode* first = nullptr;
    int previous = 0;
    for (const int id : chain) {
        step = &model.add(*step, describeById(database, id));
        if (keys == StairKeys::Contacts)
            model.setKey(*step, contactKey(id));
        model.setImage(*step, TreeImage::Contact);
        if (first == nullptr)
            first = step;
        else if (const auto relation = database.relationOfPair(previous, id))
            showStrength(model, *step, relation->weight, strongest, thresholds);
        previous = id;
    }
    setChainExpanded(tree, *first, true);
    return *first;
}

void setChainExpanded(TreeView& tree, TreeNode& node, bool expanded) {
    for (TreeNode* step = &node; !step->children().empty(); step = step->children().front())
        tree.setExpanded(*step, expanded);
}

}  // namespace pelk
