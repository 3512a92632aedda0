#include "maintenance/ShowFormSingle.h"

#include <optional>

#include "views/contacts_tree.h"
#include "views/fast_tree.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{4800, 4200};

}  // namespace

ShowFormSingle::ShowFormSingle(Toolkit& toolkit, Display& display)
    : window(toolkit.createWindow()),
      presTree(window->addTreeView({})),
      layout_(*window, kInnerSize),
      display_(display),
      showmenu_(window->addPopupMenu()),
      detailsMenuItem_(showmenu_.addItem("More details")),
      copyMenuItem_(showmenu_.addItem("Copy to clipboard")) {
    window->setCaption("Relations of a contact");
    layout_.add(presTree, {0, 0, kInnerSize.width, kInnerSize.height}, kAnchorFill);
    presTree.onMenuRequest = [this](ScreenPoint where) { openMenu(where); };
    presTree.detailOf = [this](const TreeNode& node) { return contactNodeDetail(node, *database); };
    detailsMenuItem_.onClick = [this] { detailsMenuItemClick(); };
    copyMenuItem_.onClick = [this] { copyMenuItemClick(); };
}

void ShowFormSingle::startShowing(const std::string& address) {
    address_ = address;
    refresh();
}

void ShowFormSingle::refresh() {
    strongestWeight_ = database->strongestWeight();
    fillTree(address_);
}

void ShowFormSingle::fillTree(const std::string& address) {
    TreeModel& tree = presTree.model();
    const std::optional<Contact> contact = database->contact(database->ownerOf(address));
    fastClear(presTree);
    if (!contact) {
        tree.add(tree.root(), "No contact has the address " + address + " any more.");
        return;
    }
    TreeNode& root = addContactNode(tree, tree.root(), *contact);
    fillRelatedContacts(presTree, root, *database, contact->id, strongestWeight_);
    presTree.setExpanded(root, true);
}

void ShowFormSingle::openMenu(ScreenPoint where) {
    const TreeNode* const node = presTree.selected();
    if (node == nullptr)
        return;
    detailsMenuItem_.setVisible(!node->isTopLevel());
    showmenu_.open(where);
}

void ShowFormSingle::detailsMenuItemClick() {
    if (const TreeNode* const node = presTree.selected(); node != nullptr && !node->isTopLevel())
        openDetails(std::get<int>(node->parent()->tag()), std::get<int>(node->tag()));
}

void ShowFormSingle::copyMenuItemClick() {
    if (const TreeNode* const node = presTree.selected())
        display_.copyToClipboard(node->text());
}

}  // namespace pelk
