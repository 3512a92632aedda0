#include "links/findForm.h"

#include <optional>

#include "links/link_search.h"
#include "views/contact_text.h"
#include "views/fast_tree.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{5400, 5710};
constexpr int kWidth = kInnerSize.width - 2 * kFormMargin;
constexpr int kButtonTop = bottomButton(kInnerSize, 1).top;
constexpr Rect kLabelBounds{kFormMargin, kFormMargin, kWidth, 300};
constexpr int kSearchTop = 520;
constexpr int kListTop = 830;
constexpr Rect kListBounds{kFormMargin, kListTop, kWidth, kButtonTop - kFormMargin - kListTop};

}  // namespace

findForm::findForm(Toolkit& toolkit, Dialogs& dialogs, const Language& language)
    : window(toolkit.createWindow()),
      Label1(window->addLabel({}, "Select the contact to which you want to find the best link(s)")),
      listTree(window->addTreeView({})),
      search(*window, listTree, "Search names and addresses"),
      okButton(window->addButton({}, "OK")),
      cancelButton(window->addButton({}, "Cancel")),
      layout_(*window, kInnerSize),
      dialogs_(dialogs),
      contactNodes_(listTree, db, language) {
    window->setCaption("Find a contact");
    layout_.add(Label1, kLabelBounds, kAnchorTop);
    search.place(layout_, kFormMargin, kSearchTop, kWidth);
    layout_.add(listTree, kListBounds, kAnchorFill);
    layout_.add(okButton, bottomButton(kInnerSize, 2), kAnchorBottomRight);
    layout_.add(cancelButton, bottomButton(kInnerSize, 1), kAnchorBottomRight);
    listTree.detailOf = [this](const TreeNode& node) {
        return joinedAddresses(db->contact(std::get<int>(node.tag())).value_or(Contact()));
    };
    listTree.onSelect = [this](TreeNode&) { okButton.setEnabled(true); };
    search.setTarget(contactNodes_);
    search.onShown = [this](bool shown) {
        if (shown)
            okButton.setEnabled(true);
    };
    window->setShortcut(Shortcut::Find, [this] { search.focus(); });
    listTree.onActivate = [this](TreeNode&) { okButtonClick(); };
    okButton.onClick = [this] { okButtonClick(); };
    cancelButton.onClick = [this] { window->hide(); };
}

void findForm::fillList() {
    okButton.setEnabled(false);
    fastClear(listTree);
    const RedrawSuspension suspension(listTree);
    TreeModel& list = listTree.model();
    const HiddenContacts::Ids& left = hiddenIds(hidden, *db);
    db->forEachContact([&](const Contact& contact) {
        if (left.contains(contact.id))
            return;
        TreeNode& node = list.add(list.root(), contact.name);
        list.setTag(node, contact.id);
        list.setImage(node, TreeImage::Contact);
    });
    list.sortChildren(list.root());
    search.setIdleText(hiddenText(hidden, *db));
    search.searchAgain();
}

void findForm::okButtonClick() {
    const TreeNode* const selected = listTree.selected();
    if (selected == nullptr)
        return;
    const int targetId = std::get<int>(selected->tag());
    if (targetId == sourceId) {
        dialogs_.message(kSameContactMessage, Buttons::Ok);
        return;
    }
    if (const std::optional<LinkChain> chain = LinkSearch(*db).find(sourceId, targetId))
        showResult(chain->ids);
    else
        dialogs_.message(kNoChainMessage, Buttons::Ok);
}

}  // namespace pelk
