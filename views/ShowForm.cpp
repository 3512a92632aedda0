#include "views/ShowForm.h"

#include "views/contact_text.h"
#include "views/contacts_tree.h"
#include "views/placeholder.h"
#include "views/tree_state.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{6600, 6600};
constexpr Size kMinimumInnerSize{kInnerSize.width, 2000};

/// The strip below the tree has two rows. Their positions count from the bottom edge.
constexpr int kStripHeight = 600;
constexpr int kUpperRow = 550;
constexpr int kLowerRow = 250;
constexpr int kRowHeight = 230;
constexpr int kMargin = 60;
/// Stands for the user in place of a contact's id.
constexpr int kUser = 0;

constexpr int kColumnWidth = 2400;
constexpr int kPictureWidth = 240;
constexpr int kButtonWidth = 1200;

constexpr Rect labelIn(int column) {
    return {kMargin + column * kColumnWidth, 0, kColumnWidth - kMargin, kRowHeight};
}

constexpr Rect pictureIn(int column) {
    return {kMargin + column * kColumnWidth, 0, kPictureWidth, kRowHeight};
}

constexpr Rect radioIn(int column) {
    const Rect label = labelIn(column);
    return {label.left + kPictureWidth + kMargin, 0, label.width - kPictureWidth - kMargin,
            kRowHeight};
}

/// The strip above the tree has the search field at its left and the options at its right.
constexpr int kUpperStrip = 330;
constexpr int kUpperStripTop = 40 - kUpperStrip;
constexpr Rect kSearchBounds{kMargin, kUpperStripTop, 3000, 250};
constexpr Rect kHitsBounds{kMargin + 3000 + kMargin, kUpperStripTop, 1500, 250};
constexpr Rect kOptionsBounds{kInnerSize.width - kMargin - kButtonWidth, kUpperStripTop,
                              kButtonWidth, 250};

constexpr int kLowerStrip = 250;

constexpr Rect kButtonBounds{kInnerSize.width - kMargin - kButtonWidth, 0, kButtonWidth,
                             kRowHeight};

PopupMenu& belowLine(PopupMenu& menu) {
    menu.addSeparator();
    return menu;
}

}  // namespace

ShowForm::ShowForm(const UserInterface& ui, const Language& language)
    : window(ui.toolkit.createWindow()),
      presTree(window->addTreeView({})),
      dLabel1(window->addLabel(labelIn(0), "")),
      dLabel2(window->addLabel(labelIn(1), "")),
      refreshButton(window->addButton(kButtonBounds, "&Refresh")),
      Picture1(window->addPicture(pictureIn(0), TreeImage::Contact)),
      namesRadio(window->addOptionButton(radioIn(0), "Group by &names")),
      Picture2(window->addPicture(pictureIn(1), TreeImage::Many)),
      domainsRadio(window->addOptionButton(radioIn(1), "Group by &domains")),
      gotoButton(window->addButton(kButtonBounds, "&GoTo")),
      search(*window, presTree, "Search names and addresses"),
      options(*window, ui.settings),
      lastStepLabel(window->addLabel({}, "")),
      ui_(ui),
      language_(language),
      domains_(presTree, language_),
      contactNodes_(presTree, database, language_),
      addressLeaves_(presTree, domains_, database, language_),
      showmenu_(window->addPopupMenu()),
      mergeMenuItem_(addMenuItem("Merge contacts", &ShowForm::mergeMenuItemClick)),
      renameMenuItem_(addMenuItem("Rename", &ShowForm::renameMenuItemClick)),
      deleteMenuItem_(addMenuItem("Delete", &ShowForm::deleteMenuItemClick)),
      findMenuItem_(addMenuItem("Find the best link", &ShowForm::findMenuItemClick)),
      detailsMenuItem_(addMenuItem("More details", &ShowForm::detailsMenuItemClick)),
      findAllMenuItem_(addMenuItem("Find all possible links", &ShowForm::findAllMenuItemClick)),
      copyMenuItem_(addMenuItem("Copy to clipboard", &ShowForm::copyMenuItemClick)),
      viewMenuItem_(addMenuItem("View contacts", &ShowForm::viewMenuItemClick)),
      goMenuItem_(addMenuItem("Go to this contact", &ShowForm::goMenuItemClick)),
      overTimeMenuItem_(
          (belowLine(showmenu_), addMenuItem("Over time", &ShowForm::overTimeMenuItemClick))),
      lostSightMenuItem_(addMenuItem("Lost sight of", &ShowForm::lostSightMenuItemClick)),
      pictureMenuItem_(addMenuItem("Show picture", &ShowForm::pictureMenuItemClick)),
      undoItems_(showmenu_),
      optionsLostSightItem_(belowLine(options.menu).addItem("Lost sight of")),
      optionsCommunityItem_(options.menu.addItem("Show the picture")),
      optionsUndoItems_(belowLine(options.menu)) {
    window->setCaption("Relations Tree");
    window->onResize = [this] { formResize(); };
    window->setMinimumInnerSize(kMinimumInnerSize);
    window->setInnerSize(kInnerSize);
    window->setStrips(kUpperStrip, kLowerStrip);
    window->setShortcut(Shortcut::Find, [this] { search.focus(); });
    search.box.setBounds(kSearchBounds);
    search.status.setBounds(kHitsBounds);
    search.setTarget(contactNodes_);
    search.onShown = [this](bool shown) {
        if (shown)
            reportSelected();
    };
    options.button.setBounds(kOptionsBounds);
    options.onChange = [this] { applyOptions(); };
    options.button.onClick = [this] {
        optionsLostSightItem_.setVisible(openLostSight != nullptr);
        optionsCommunityItem_.setVisible(openCommunity != nullptr);
        optionsUndoItems_.update(*database);
        options.menu.openBelow(options.button);
    };
    formResize();
    optionsLostSightItem_.onClick = [this] { openLostSight(kUser); };
    optionsCommunityItem_.onClick = [this] { openCommunity(); };
    presTree.allowMultipleSelection();
    presTree.onExpand = [this](TreeNode& node) { expand(node); };
    presTree.onCollapse = [this](TreeNode& node) { replaceByPlaceholder(presTree, node); };
    presTree.onMenuRequest = [this](ScreenPoint where) { openMenu(where); };
    presTree.onSelect = [this](TreeNode&) { reportSelected(); };
    presTree.onActivate = [this](TreeNode& node) { activate(node); };
    presTree.detailOf = [this](const TreeNode& node) { return detailOf(node); };
    presTree.onDeleteKey = [this] { deleteKeyPressed(); };
    for (UndoItems* const items : {&undoItems_, &optionsUndoItems_}) {
        items->undo = [this] { undo(); };
        items->redo = [this] { redo(); };
    }
    namesRadio.onClick = [this] { group(true); };
    domainsRadio.onClick = [this] { group(false); };
    gotoButton.onClick = [this] { gotoButtonClick(); };
    refreshButton.onClick = [this] { refreshButtonClick(); };
    window->setShortcut(Shortcut::Refresh, [this] { refreshButtonClick(); });
    window->setShortcut(Shortcut::Rename, [this] { renameKeyPressed(); });
}

void ShowForm::startShowing() {
    const TreeState before(presTree);
    const bool keepsState = groupedByNames_ && window->isVisible();
    groupedByNames_ = true;
    options.enableRelations(true);
    showTotals();
    showHidden();
    namesRadio.setChecked(true);
    strongestWeight_ = database->strongestWeight();
    fillTree();
    search.setTarget(contactNodes_);
    if (keepsState)
        before.restore(presTree, [this](TreeNode& node) { expand(node); });
    else
        scrollToFirstRow();
}

/// The native tree would keep the position that it had with other rows.
void ShowForm::scrollToFirstRow() {
    const std::vector<TreeNode*>& rows = presTree.model().root().children();
    if (!rows.empty())
        presTree.scrollToTop(*rows.front());
}

void ShowForm::showTotals() {
    dLabel1.setText("Total parsed mails: " + database->totalMails());
    dLabel2.setText("Total contacts: " + std::to_string(database->contactCount()));
    showLastStep();
}

void ShowForm::showHidden() {
    if (hidden != nullptr)
        hidden->hide(!options.showsLists());
    search.setIdleText(hiddenText(hidden, *database));
}

void ShowForm::applyOptions() {
    refresh();
    if (hiddenChanged)
        hiddenChanged();
}

void ShowForm::fillTree() {
    fillContactsTree(presTree, *database, relationView());
}

void ShowForm::fillTreeDomains() {
    domains_.hide(hiddenIds(hidden, *database));
    options.byRegisteredName() ? domains_.fillByRegisteredName(*database)
                               : domains_.fill(*database);
}

void ShowForm::refresh() {
    showTotals();
    showHidden();
    const TreeState before(presTree);
    if (groupedByNames_)
        fillTree();
    else
        fillTreeDomains();
    before.restore(presTree, [this](TreeNode& node) { expand(node); });
    search.searchAgain();
}

void ShowForm::group(bool byNames) {
    if (groupedByNames_ == byNames)
        return;
    groupedByNames_ = byNames;
    options.enableRelations(byNames);
    refresh();
    scrollToFirstRow();
    byNames ? search.setTarget(contactNodes_) : search.setTarget(addressLeaves_);
}

void ShowForm::expand(TreeNode& node) {
    if (!groupedByNames_)
        domains_.expand(node, *database);
    else if (const int* const id = std::get_if<int>(&node.tag()); id != nullptr && !isFilled(node))
        fillRelatedContacts(presTree, node, *database, *id, strongestWeight_, relationView());
}

RelationView ShowForm::relationView() const {
    return {*database, options.relations(), strongestWeight_, hiddenIds(hidden, *database)};
}

std::string ShowForm::detailOf(const TreeNode& node) {
    return groupedByNames_ ? contactNodeDetail(node, *database)
                           : domains_.detailOf(node, *database);
}

void ShowForm::formResize() {
    const Size inner = window->innerSize();
    if (inner.height <= kStripHeight)
        return;
    presTree.setBounds({0, 0, inner.width, inner.height - kStripHeight});
    const auto setTop = [](Control& control, int top) {
        Rect bounds = control.bounds();
        bounds.top = top;
        control.setBounds(bounds);
    };
    for (Button* button : {&options.button, &refreshButton, &gotoButton}) {
        Rect bounds = button->bounds();
        bounds.left = inner.width - kMargin - kButtonWidth;
        button->setBounds(bounds);
    }
    for (Control* control : std::initializer_list<Control*>{&dLabel1, &dLabel2, &refreshButton})
        setTop(*control, inner.height - kUpperRow);
    for (Control* control : std::initializer_list<Control*>{&Picture1, &namesRadio, &Picture2,
                                                            &domainsRadio, &gotoButton})
        setTop(*control, inner.height - kLowerRow);
    lastStepLabel.setBounds({kMargin, inner.height, inner.width - 2 * kMargin, kRowHeight});
}

/// Searches all nodes, children included, in the order in which they were added. Afterwards the
/// keys are for the tree.
void ShowForm::gotoButtonClick() {
    presTree.focus();
    const std::string answer =
        ui_.dialogs.input("", "Enter the first letters of the contact you want to find:", "");
    if (answer.empty())
        return;
    TreeModel& tree = presTree.model();
    for (TreeNode* node = tree.firstByIndex(); node != nullptr; node = tree.nextByIndex(*node)) {
        if (isPlaceholder(*node) || !language_.startsWith(node->text(), answer))
            continue;
        presTree.select(node);
        search.say("");
        return;
    }
    search.say(kNothingFound);
}

void ShowForm::selectContact(int contactId) {
    namesRadio.setChecked(true);
    group(true);
    TreeNode* const node = presTree.model().find(contactKey(contactId));
    presTree.select(node);
    search.say(node == nullptr ? "not shown" : "");
}

void ShowForm::goToContact(int contactId) {
    selectContact(contactId);
    presTree.focus();
}

/// Of an address that several contacts have, the first one.
void ShowForm::reportSelected() {
    const TreeNode* const node = presTree.selected();
    if (!contactSelected || node == nullptr || isPlaceholder(*node))
        return;
    if (groupedByNames_)
        contactSelected(std::get<int>(node->tag()));
    else if (isAddressLeaf(*node))
        if (const std::vector<int> owners = database->ownersOf(domainOf(*node)); !owners.empty())
            contactSelected(owners.front());
}

void ShowForm::refreshButtonClick() {
    refresh();
    presTree.repaint();
}

}  // namespace pelk
