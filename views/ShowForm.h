#pragma once
// The relations view. Grouped by names, its tree has a top-level node for each contact, which
// expands into the related contacts, coloured by the strength of the relation. Grouped by domains,
// it shows the mail domains of all addresses. A pop-up menu has the commands on the selected node.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "db/database.h"
#include "platform/language.h"
#include "platform/user_interface.h"
#include "views/domains_tree.h"
#include "views/tree_search.h"
#include "views/undo_items.h"
#include "views/view_options.h"

namespace pelk {

class ShowForm {
 public:
    ShowForm(const UserInterface& ui, const Language& language);

    /// Set before `startShowing`; outlives the form's use of it.
    const Database* database = nullptr;

    /// Outlives the form's use of it; null hides nobody. Hides what the options say.
    HiddenContacts* hidden = nullptr;

    /// Open other forms for the selected node.
    std::function<void(int contactId, const std::string& text)> mergeContact;
    std::function<void(int contactId, int relatedId)> openDetails;
    std::function<void(const std::string& address)> openContact;
    std::function<void(int contactId)> findLinks;
    std::function<void(const std::string& domain)> findDomainLinks;
    /// Shows the people around a contact as a picture. The menu offers only what is set.
    std::function<void(int contactId)> openCircle;
    /// Show when the contact exchanged e-mails with the other one, or with all others if that is 0;
    /// and with whom the contact, or the user if it is 0, has lost touch. The menus offer only what
    /// is set.
    std::function<void(int contactId, int otherId)> openOverTime;
    std::function<void(int contactId)> openLostSight;
    /// Shows the picture of the community.
    std::function<void()> openCommunity;
    /// Called after the user has selected a contact, alone or below another one.
    std::function<void(int contactId)> contactSelected;
    /// Change the database and save it.
    std::function<void(int contactId, const std::string& name)> renameContact;
    std::function<void(const std::vector<int>& ids, const std::string& what)> deleteContacts;
    /// Called after a command has changed the database.
    std::function<void()> databaseChanged;
    /// Called after the user has hidden contacts, or shown them again.
    std::function<void()> hiddenChanged;
    /// Undo and redo the user's last step.
    std::function<void()> undo;
    std::function<void()> redo;

    /// Groups by names, and fills the tree and the totals. Strengths shown from now on are relative
    /// to the relation that is strongest now.
    void startShowing();
    /// Rebuilds the tree as contacts, or as domains.
    void fillTree();
    void fillTreeDomains();
    /// Rebuilds the tree in its current grouping, and the totals. What is expanded, selected and in
    /// view stays so.
    void refresh();
    /// Updates the line about the user's last step.
    void showLastStep() { lastStepLabel.setText(lastStepText(*database)); }
    /// Selects the contact in the grouping by names; if the options hide it, says so. Calls no
    /// handler.
    void selectContact(int contactId);
    /// Selects the contact in that way, and gives the tree the focus.
    void goToContact(int contactId);
    /// Shows the form modelessly.
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
    SearchField search;
    ViewOptions options;
    /// In the strip below: what was done last, and how to undo it.
    Label& lastStepLabel;

 private:
    void formResize();
    void scrollToFirstRow();
    void showTotals();
    void applyOptions();
    void showHidden();
    void group(bool byNames);
    void expand(TreeNode& node);
    RelationView relationView() const;
    std::string detailOf(const TreeNode& node);
    void gotoButtonClick();
    void refreshButtonClick();
    void reportSelected();
    void renameKeyPressed();

    // Menu commands on the selected node, in ShowFormCommands.cpp.
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
    void goMenuItemClick(TreeNode& node);
    void overTimeMenuItemClick(TreeNode& node);
    void lostSightMenuItemClick(TreeNode& node);
    void pictureMenuItemClick(TreeNode& node);
    void activate(TreeNode& node);
    bool isGone(int contactId);
    void deleteContact(int id);
    void deleteDomain(const TreeNode& node);
    std::vector<int> contactsOfDomain(const std::string& domain);

    UserInterface ui_;
    const Language& language_;
    DomainsTree domains_;
    ContactNodes contactNodes_;
    AddressLeaves addressLeaves_;
    PopupMenu& showmenu_;
    MenuItem& mergeMenuItem_;
    MenuItem& renameMenuItem_;
    MenuItem& deleteMenuItem_;
    MenuItem& findMenuItem_;
    MenuItem& detailsMenuItem_;
    MenuItem& findAllMenuItem_;
    MenuItem& copyMenuItem_;
    MenuItem& viewMenuItem_;
    MenuItem& goMenuItem_;
    MenuItem& overTimeMenuItem_;
    MenuItem& lostSightMenuItem_;
    MenuItem& pictureMenuItem_;
    UndoItems undoItems_;
    /// In the menu of the options, for the user.
    MenuItem& optionsLostSightItem_;
    MenuItem& optionsCommunityItem_;
    /// The same entries in the menu of the options.
    UndoItems optionsUndoItems_;
    bool groupedByNames_ = true;
    std::int64_t strongestWeight_ = 0;
};

}  // namespace pelk
