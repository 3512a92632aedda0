#include "views/ShowForm.h"

#include <string>

#include "views/contact_text.h"
#include "views/fast_tree.h"
#include "views/strength.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{6600, 6600};
constexpr Size kMinimumInnerSize{kInnerSize.width, 2000};

/// The strip below the tree holds two rows, placed from the bottom edge.
constexpr int kStripHeight = 600;
constexpr int kUpperRow = 550;
constexpr int kLowerRow = 250;
constexpr int kMargin = 60;

constexpr Size kLabelSize{2000, 230};
constexpr Size kButtonSize{1200, 230};
constexpr Rect kMailsBounds{kMargin, 0, kLabelSize.width, kLabelSize.height};
constexpr Rect kContactsBounds{kMargin + kLabelSize.width, 0, kLabelSize.width, kLabelSize.height};
constexpr Rect kButtonBounds{kInnerSize.width - kMargin - kButtonSize.width, 0, kButtonSize.width,
                             kButtonSize.height};

constexpr const char* kPlaceholderText = "Loading...";

void setTop(Control& control, int top) {
    Rect bounds = control.bounds();
    bounds.top = top;
    control.setBounds(bounds);
}

/// A placeholder stands for children that are not filled in yet; it is nobody's node.
bool isPlaceholder(const TreeNode& node) {
    return std::holds_alternative<std::monostate>(node.tag());
}

}  // namespace

ShowForm::ShowForm(Toolkit& toolkit, const Platform& platform)
    : window(toolkit.createWindow()),
      presTree(window->addTreeView({})),
      dLabel1(window->addLabel(kMailsBounds, "")),
      dLabel2(window->addLabel(kContactsBounds, "")),
      refreshButton(window->addButton(kButtonBounds, "Refresh")),
      gotoButton(window->addButton(kButtonBounds, "GoTo")),
      platform_(platform) {
    window->setCaption("Relations Tree");
    window->onResize = [this] { formResize(); };
    window->setMinimumInnerSize(kMinimumInnerSize);
    window->setInnerSize(kInnerSize);
    formResize();
    presTree.onExpand = [this](TreeNode& node) { expand(node); };
    presTree.onCollapse = [this](TreeNode& node) { collapse(node); };
    gotoButton.onClick = [this] { gotoButtonClick(); };
    refreshButton.onClick = [this] { refreshButtonClick(); };
}

void ShowForm::startShowing() {
    dLabel1.setText("Total parsed mails: " + database->totalMails());
    dLabel2.setText("Total contacts: " + std::to_string(database->contactCount()));
    fillTree();
    strongestWeight_ = database->strongestWeight();
}

void ShowForm::fillTree() {
    fastClear(presTree);
    const RedrawSuspension suspension(presTree);
    database->forEachContact([this](const Contact& contact) { addContactNode(contact); });
    presTree.model().sortChildren(presTree.model().root());
}

void ShowForm::addContactNode(const Contact& contact) {
    TreeModel& tree = presTree.model();
    TreeNode& node = tree.add(tree.root(), describe(contact));
    tree.add(node);
    tree.setKey(node, contactKey(contact.id));
    tree.setTag(node, contact.id);
    tree.setImage(node, TreeImage::Contact);
}

/// A node that is filled already has several children, or the single related contact, which is
/// found again.
void ShowForm::expand(TreeNode& node) {
    const int* const id = std::get_if<int>(&node.tag());
    if (id == nullptr || node.children().size() > 1)
        return;
    const RedrawSuspension suspension(presTree);
    presTree.model().removeChildren(node);
    const Thresholds thresholds = database->thresholds();
    for (const Relation& relation : database->relationsOf(*id))
        addRelatedContact(node, *id, relation, thresholds);
    presTree.model().sortChildren(node);
}

void ShowForm::addRelatedContact(TreeNode& parent, int contactId, const Relation& relation,
                                 const Thresholds& thresholds) {
    const int relatedId = relation.partnerOf(contactId);
    const std::optional<Contact> related = database->contact(relatedId);
    const Strength strength =
        strengthOf(roundToInteger(relation.weight), strongestWeight_, thresholds);
    TreeModel& tree = presTree.model();
    TreeNode& node = tree.add(parent, related ? related->name : std::string());
    tree.setTag(node, relatedId);
    tree.setImage(node, imageOf(strength));
    tree.setColor(node, colorOf(strength));
}

/// The next expansion fills the node anew, with the thresholds of that moment.
void ShowForm::collapse(TreeNode& node) {
    presTree.model().removeChildren(node);
    presTree.model().add(node, kPlaceholderText);
}

void ShowForm::formResize() {
    const Size inner = window->innerSize();
    if (inner.height <= kStripHeight)
        return;
    presTree.setBounds({0, 0, inner.width, inner.height - kStripHeight});
    for (Control* control : {static_cast<Control*>(&dLabel1), static_cast<Control*>(&dLabel2),
                             static_cast<Control*>(&refreshButton)})
        setTop(*control, inner.height - kUpperRow);
    setTop(gotoButton, inner.height - kLowerRow);
}

/// Goes through the nodes in the order in which they were added, related contacts among them.
void ShowForm::gotoButtonClick() {
    const std::string answer =
        platform_.dialogs.input("", "Enter the first letters of the contact you want to find:", "");
    if (answer.empty())
        return;
    TreeModel& tree = presTree.model();
    for (TreeNode* node = tree.firstByIndex(); node != nullptr; node = tree.nextByIndex(*node)) {
        if (isPlaceholder(*node) || !platform_.language.startsWith(node->text(), answer))
            continue;
        presTree.select(node);
        return;
    }
}

void ShowForm::refreshButtonClick() {
    fillTree();
    presTree.repaint();
}

}  // namespace pelk
