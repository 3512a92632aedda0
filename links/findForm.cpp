#include "links/findForm.h"

#include <optional>

#include "links/link_search.h"
#include "views/fast_tree.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{5400, 5400};
constexpr int kMargin = 150;
constexpr int kWidth = kInnerSize.width - 2 * kMargin;
constexpr Size kButtonSize{1300, 330};
constexpr int kButtonTop = kInnerSize.height - kMargin - kButtonSize.height;
constexpr Rect kLabelBounds{kMargin, kMargin, kWidth, 300};
constexpr int kListTop = 520;
constexpr Rect kListBounds{kMargin, kListTop, kWidth, kButtonTop - kMargin - kListTop};

constexpr Rect buttonAt(int fromRight) {
    return {kInnerSize.width - fromRight * (kMargin + kButtonSize.width), kButtonTop,
            kButtonSize.width, kButtonSize.height};
}

}  // namespace

findForm::findForm(Toolkit& toolkit, const Platform& platform)
    : window(toolkit.createWindow()),
      Label1(window->addLabel({}, "Select the contact to which you want to find the best link(s)")),
      listTree(window->addTreeView({})),
      okButton(window->addButton({}, "OK")),
      cancelButton(window->addButton({}, "Cancel")),
      layout_(*window, kInnerSize),
      platform_(platform) {
    window->setCaption("Find a contact");
    layout_.add(Label1, kLabelBounds, kFollowsWidth);
    layout_.add(listTree, kListBounds, kFollowsBoth);
    layout_.add(okButton, buttonAt(2), kStaysAtBottomRight);
    layout_.add(cancelButton, buttonAt(1), kStaysAtBottomRight);
    listTree.onSelect = [this](TreeNode&) { okButton.setEnabled(true); };
    okButton.onClick = [this] { okButtonClick(); };
    cancelButton.onClick = [this] { window->hide(); };
}

void findForm::fillList() {
    okButton.setEnabled(false);
    fastClear(listTree);
    const RedrawSuspension suspension(listTree);
    TreeModel& list = listTree.model();
    db->forEachContact([&list](const Contact& contact) {
        TreeNode& node = list.add(list.root(), contact.name);
        list.setTag(node, contact.id);
        list.setImage(node, TreeImage::Contact);
    });
    list.sortChildren(list.root());
}

void findForm::okButtonClick() {
    const TreeNode* const selected = listTree.selected();
    if (selected == nullptr)
        return;
    const int targetId = std::get<int>(selected->tag());
    if (targetId == sourceId) {
        platform_.dialogs.message(kSameContactMessage, Buttons::Ok);
        return;
    }
    if (const std::optional<LinkChain> chain = LinkSearch(*db).find(sourceId, targetId))
        showResult(chain->ids);
    else
        platform_.dialogs.message(kNoChainMessage, Buttons::Ok);
}

}  // namespace pelk
