// The relations view's menu: which commands it offers for the selected node, and what they do.

#include <utility>

#include "views/ShowForm.h"
#include "views/contact_text.h"
#include "views/deletion_text.h"
#include "views/domains.h"
#include "views/domains_tree.h"
#include "views/email_parser.h"
#include "views/placeholder.h"

namespace pelk {
namespace {

/// Returns the contact's id. Requires: the node belongs to the names grouping.
int contactOf(const TreeNode& node) {
    return std::get<int>(node.tag());
}

/// Returns the nodes that show the contact below a related contact.
std::vector<TreeNode*> relatedNodesOf(TreeModel& tree, int id) {
    std::vector<TreeNode*> nodes;
    for (TreeNode* node = tree.firstByIndex(); node != nullptr; node = tree.nextByIndex(*node))
        if (!node->isTopLevel() && node->tag() == TreeTag(id))
            nodes.push_back(node);
    return nodes;
}

}  // namespace

MenuItem& ShowForm::addMenuItem(const std::string& caption, void (ShowForm::*command)(TreeNode&)) {
    MenuItem& item = showmenu_.addItem(caption);
    item.onClick = [this, command] {
        if (TreeNode* const node = presTree.selected())
            (this->*command)(*node);
    };
    return item;
}

void ShowForm::openMenu(ScreenPoint where) {
    const TreeNode* const node = presTree.selected();
    if (node == nullptr)
        return;
    const bool isContact = groupedByNames_ && node->isTopLevel();
    mergeMenuItem_.setVisible(isContact);
    renameMenuItem_.setVisible(isContact);
    deleteMenuItem_.setVisible(isContact || !groupedByNames_);
    findMenuItem_.setVisible(isContact);
    detailsMenuItem_.setVisible(groupedByNames_ && !isContact);
    goMenuItem_.setVisible(groupedByNames_ && !isContact);
    findAllMenuItem_.setVisible(!groupedByNames_);
    viewMenuItem_.setVisible(!groupedByNames_ && isAddressLeaf(*node));
    overTimeMenuItem_.setVisible(groupedByNames_ && openOverTime && !isPlaceholder(*node));
    lostSightMenuItem_.setVisible(isContact && openLostSight);
    pictureMenuItem_.setVisible(groupedByNames_ && openCircle && !isPlaceholder(*node));
    undoItems_.update(*database);
    showmenu_.open(where);
}

void ShowForm::renameKeyPressed() {
    TreeNode* const node = presTree.selected();
    if (node != nullptr && groupedByNames_ && node->isTopLevel())
        renameMenuItemClick(*node);
}

void ShowForm::deleteKeyPressed() {
    TreeNode* const node = presTree.selected();
    if (node != nullptr && (!groupedByNames_ || node->isTopLevel()))
        deleteMenuItemClick(*node);
}

/// Takes all selected contacts. Their ids and texts are read first, because `isGone` may fill the
/// tree again.
void ShowForm::mergeMenuItemClick(TreeNode&) {
    std::vector<std::pair<int, std::string>> contacts;
    for (const TreeNode* const node : presTree.selectedNodes())
        if (node->isTopLevel())
            contacts.emplace_back(contactOf(*node), node->text());
    for (const auto& [id, text] : contacts)
        if (!isGone(id))
            mergeContact(id, text);
}

/// The node shows the new name without the addresses until the tree is filled again. This is on
/// purpose: it marks the contact that was just renamed.
void ShowForm::renameMenuItemClick(TreeNode& node) {
    const int id = contactOf(node);
    const std::string shown = node.text();
    const auto nameIn = [this, id](const std::string& text) {
        return withoutAddresses(text, database->contact(id).value_or(Contact()));
    };
    const std::string answer = ui_.dialogs.input("Rename", "Enter the new name of the contact",
                                                 shown, nameIn(shown).size());
    if (answer.empty() || answer == shown || isGone(id))
        return;
    renameContact(id, nameIn(answer));
    databaseChanged();
    showLastStep();
    const std::string name = database->nameOf(id);
    presTree.model().setText(node, name);
    for (TreeNode* const related : relatedNodesOf(presTree.model(), id))
        presTree.model().setText(*related, name);
}

void ShowForm::deleteMenuItemClick(TreeNode& node) {
    if (groupedByNames_)
        deleteContact(contactOf(node));
    else
        deleteDomain(node);
}

/// Tells the user and returns true when the node's contact has been deleted or has no valid id, so
/// that no command acts on it.
bool ShowForm::isGone(int contactId) {
    if (database->contact(contactId))
        return false;
    ui_.dialogs.message("This contact is no longer in the database.", Buttons::Ok);
    refresh();
    return true;
}

void ShowForm::deleteContact(int id) {
    const std::string name = nameForUser(*database, id);
    if (!ui_.dialogs.confirm("Do you want to delete this contact ?",
                             deletionText(*database, name, {id})) ||
        isGone(id))
        return;
    deleteContacts({id}, name);
    databaseChanged();
    TreeModel& tree = presTree.model();
    for (TreeNode* const related : relatedNodesOf(tree, id))
        tree.remove(*related);
    if (TreeNode* const own = tree.find(contactKey(id)))
        tree.remove(*own);
    showTotals();
    search.searchAgain();
}

void ShowForm::deleteDomain(const TreeNode& node) {
    const std::string domain = domainOf(node);
    requireDeletableDomain(domain);
    if (!ui_.dialogs.confirm(isAddressLeaf(node) ? "Do you want to delete this contact?"
                                                 : "Do you want to delete this domain?",
                             deletionText(*database, domain, contactsOfDomain(domain))))
        return;
    deleteContacts(contactsOfDomain(domain), domain);
    databaseChanged();
    refresh();
}

/// A registered name is a whole name: intel.com is not the end of myintel.com.
std::vector<int> ShowForm::contactsOfDomain(const std::string& domain) {
    if (domains_.grouping() == DomainGrouping::ByLabel)
        return contactsToDelete(*database, domain);
    return domain.find('@') != std::string::npos
               ? database->ownersOf(domain)
               : contactsBelow(domains_.addresses(*database), labelsOf(domain));
}

void ShowForm::findMenuItemClick(TreeNode& node) {
    if (const int id = contactOf(node); !isGone(id))
        findLinks(id);
}

void ShowForm::detailsMenuItemClick(TreeNode& node) {
    openDetails(contactOf(*node.parent()), contactOf(node));
}

void ShowForm::findAllMenuItemClick(TreeNode& node) {
    findDomainLinks(domainOf(node));
}

void ShowForm::copyMenuItemClick(TreeNode& node) {
    ui_.display.copyToClipboard(node.text());
}

void ShowForm::viewMenuItemClick(TreeNode& node) {
    openContact(std::get<std::string>(node.tag()));
}

/// A contact may be missing from the tree because of the options.
void ShowForm::goMenuItemClick(TreeNode& node) {
    if (TreeNode* const contact = presTree.model().find(contactKey(contactOf(node))))
        presTree.select(contact);
}

/// Of a contact with all others, or of a related contact with the one above it.
void ShowForm::overTimeMenuItemClick(TreeNode& node) {
    constexpr int kAllOthers = 0;
    if (node.isTopLevel())
        openOverTime(contactOf(node), kAllOthers);
    else
        openOverTime(contactOf(*node.parent()), contactOf(node));
}

void ShowForm::lostSightMenuItemClick(TreeNode& node) {
    if (const int id = contactOf(node); !isGone(id))
        openLostSight(id);
}

void ShowForm::pictureMenuItemClick(TreeNode& node) {
    if (const int id = contactOf(node); !isGone(id))
        openCircle(id);
}

void ShowForm::activate(TreeNode& node) {
    if (groupedByNames_ && !node.isTopLevel() && !isPlaceholder(node))
        goMenuItemClick(node);
}

}  // namespace pelk
