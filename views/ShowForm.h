#pragma once
// The relations view: every contact as a top-level node of a tree, which expands into the contacts
// it has a relation with, coloured by the strength of that relation; or, grouped by domains, the
// mail domains of all addresses. Commands on the selected node are in its pop-up menu.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "db/database.h"
#include "platform/controls.h"
#include "platform/platform.h"
#include "views/domains_tree.h"

namespace pelk {

class ShowForm {
 public:
    ShowForm(Toolkit& toolkit, const Platform& platform);

    /// Set before `startShowing`; outlives the form's use of it.
    const Database* database = nullptr;

    /// Where the selection is handed to other forms, who carries out the changes of the database
    /// and saves them, and who hears that a command has made one. Set before the form is shown.
    std::function<void(int contactId, const std::string& text)> mergeContact;
    std::function<void(int contactId, int relatedId)> openDetails;
    std::function<void(const std::string& address)> openContact;
    std::function<void(int contactId)> findLinks;
    std::function<void(const std::string& domain)> findDomainLinks;
    std::function<void(int contactId, const std::string& name)> renameContact;
    std::function<void(const std::vector<int>& ids)> deleteContacts;
    std::function<void()> databaseChanged;

    /// Fills the tree with the contacts, and the totals. The strengths that are shown from now on
    /// are measured against the strongest relation of this moment.
    void startShowing();
    /// Rebuilds the tree as contacts, or as domains.
    void fillTree();
    void fillTreeDomains();
    /// Rebuilds the tree as it is grouped, and the totals.
    void refresh();
    /// Shows the form beside the other windows.
    void show() { window->show(); }

    const std::unique_ptr<Window> window;
    TreeView& presTree;
    Label& dLabel1;
    Label& dLabel2;
    Button& refreshButton;
    Picture& Picture1;
    OptionButton& namesRadio;
    Picture& Picture2;
    OptionButton& domainsRadio;
    Button& gotoButton;

 private:
    void formResize();
    void showTotals();
    void group(bool byNames);
    void expand(TreeNode& node);
    void gotoButtonClick();
    void refreshButtonClick();

    // The commands of the menu, in ShowFormCommands.cpp. Each acts on the selected node.
    MenuItem& addMenuItem(const std::string& caption, void (ShowForm::*command)(TreeNode&));
    void openMenu(ScreenPoint where);
    void deleteKeyPressed();
    void mergeMenuItemClick(TreeNode& node);
    void renameMenuItemClick(TreeNode& node);
    void deleteMenuItemClick(TreeNode& node);
    void findMenuItemClick(TreeNode& node);
    void detailsMenuItemClick(TreeNode& node);
    void findAllMenuItemClick(TreeNode& node);
    void copyMenuItemClick(TreeNode& node);
    void viewMenuItemClick(TreeNode& node);
    bool isGone(int contactId);
    void deleteContact(int id);
    void deleteDomain(const TreeNode& node);

    Platform platform_;
    DomainsTree domains_;
    PopupMenu& showmenu_;
    MenuItem& mergeMenuItem_;
    MenuItem& renameMenuItem_;
    MenuItem& deleteMenuItem_;
    MenuItem& findMenuItem_;
    MenuItem& detailsMenuItem_;
    MenuItem& findAllMenuItem_;
    MenuItem& copyMenuItem_;
    MenuItem& viewMenuItem_;
    bool groupedByNames_ = true;
    std::int64_t strongestWeight_ = 0;
};

}  // namespace pelk
