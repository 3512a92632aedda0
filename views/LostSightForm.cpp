#include "views/LostSightForm.h"

#include "views/contact_text.h"
#include "views/contacts_tree.h"
#include "views/deletion_text.h"
#include "views/fast_tree.h"
#include "views/relation_totals.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{6600, 5400};
constexpr int kWidth = kInnerSize.width - 2 * kFormMargin;
constexpr int kLineHeight = 260;
constexpr int kTimeTop = 480;
constexpr int kTimeWidth = 1500;
constexpr int kRadioWidth = 1200;
constexpr int kTreeTop = 850;
constexpr int kCountHeight = 2 * kLineHeight;
constexpr int kCountTop = kInnerSize.height - 2 * kFormMargin - kFormButton.height - kCountHeight;
constexpr Size kGoButton{2400, kFormButton.height};

constexpr Rect radio(int number) {
    return {kFormMargin + kTimeWidth + number * kRadioWidth, kTimeTop, kRadioWidth - 60,
            kLineHeight};
}

}  // namespace

LostSightForm::LostSightForm(Toolkit& toolkit, Clock& clock)
    : window(toolkit.createWindow()),
      titleLabel(window->addLabel({}, "")),
      timeLabel(window->addLabel({}, "No e-mail for:")),
      halfYearRadio(window->addOptionButton({}, "&6 months")),
      yearRadio(window->addOptionButton({}, "&1 year")),
      twoYearsRadio(window->addOptionButton({}, "&2 years")),
      fiveYearsRadio(window->addOptionButton({}, "&5 years")),
      tree(window->addTreeView({})),
      countLabel(window->addLabel({}, "")),
      goButton(window->addButton({}, "&Show in the relations view")),
      userButton(window->addButton({}, "Of &me")),
      okButton(window->addButton({}, "OK")),
      clock_(clock),
      layout_(*window, kInnerSize) {
    window->setCaption("Lost sight of");
    place();
    yearRadio.setChecked(true);
    halfYearRadio.onClick = [this] { choose(6); };
    yearRadio.onClick = [this] { choose(12); };
    twoYearsRadio.onClick = [this] { choose(24); };
    fiveYearsRadio.onClick = [this] { choose(60); };
    tree.detailOf = [this](const TreeNode& node) {
        const auto row = static_cast<std::size_t>(std::get<int>(node.tag()));
        return counted(lost_[row].weight, "e-mail") + ", the last on " + dayText(lost_[row].last);
    };
    tree.onSelect = [this](TreeNode&) { goButton.setEnabled(true); };
    tree.onActivate = [this](TreeNode&) { goToSelected(); };
    goButton.onClick = [this] { goToSelected(); };
    userButton.onClick = [this] { fillForUser(); };
    okButton.onClick = [this] { window->hide(); };
}

void LostSightForm::place() {
    layout_.add(titleLabel, {kFormMargin, kFormMargin, kWidth, kLineHeight}, kAnchorTop);
    timeLabel.setBounds({kFormMargin, kTimeTop, kTimeWidth, kLineHeight});
    int number = 0;
    for (OptionButton* const option : {&halfYearRadio, &yearRadio, &twoYearsRadio, &fiveYearsRadio})
        option->setBounds(radio(number++));
    layout_.add(tree, {kFormMargin, kTreeTop, kWidth, kCountTop - kTreeTop - kFormMargin / 2},
                kAnchorFill);
    layout_.add(countLabel, {kFormMargin, kCountTop, kWidth, kCountHeight}, kAnchorBottom);
    const Rect last = bottomButton(kInnerSize, 1);
    layout_.add(goButton, {kFormMargin, last.top, kGoButton.width, kGoButton.height}, {0, 1, 0, 0});
    layout_.add(userButton, bottomButton(kInnerSize, 2), kAnchorBottomRight);
    layout_.add(okButton, last, kAnchorBottomRight);
}

void LostSightForm::fill(int contactId) {
    contactId_ = contactId;
    titleLabel.setText(contactId == kUser
                           ? "People you have lost sight of"
                           : "People " + nameForUser(*database, contactId) + " has lost sight of");
    userButton.setEnabled(contactId != kUser);
    const std::vector<int> people =
        contactId == kUser ? ownersOf(*database, ownAddresses()) : std::vector<int>{contactId};
    const LostSight lost = lostSightOf(*database, history(), people, dayOf(clock_.now()), months_,
                                       hiddenIds(hidden, *database));
    fillTree(lost);
    countLabel.setText(summary(people, lost));
}

void LostSightForm::choose(int months) {
    months_ = months;
    refresh();
}

void LostSightForm::fillTree(const LostSight& lost) {
    fastClear(tree);
    goButton.setEnabled(false);
    lost_ = lost.contacts;
    const RedrawSuspension suspension(tree);
    TreeModel& model = tree.model();
    const Thresholds thresholds = database->thresholds();
    const std::int64_t strongest = database->strongestWeight();
    for (std::size_t row = 0; row < lost_.size(); ++row) {
        TreeNode& node = model.add(model.root(), nameForUser(*database, lost_[row].id));
        model.setTag(node, static_cast<int>(row));
        showStrength(model, node, static_cast<double>(lost_[row].weight), strongest, thresholds);
    }
}

/// Says how many there are, or why there are none.
std::string LostSightForm::summary(const std::vector<int>& people, const LostSight& lost) const {
    if (history().empty())
        return "The history begins with the next scan.";
    if (people.empty())
        return "Your own addresses are not known yet. The next scan finds them.";
    const std::size_t count = lost.contacts.size();
    std::string text = count == 0 ? "Nobody: all others with a strong or medium relation wrote or "
                                    "were written to in this time."
                                  : counted(static_cast<std::int64_t>(count), "contact") +
                                        (count == 1 ? "." : ", the strongest relation first.");
    if (lost.undated > 0)
        text += " The history has no e-mail with " + std::to_string(lost.undated) + " more.";
    if (lost.hidden > 0)
        text += " " + std::to_string(lost.hidden) + " hidden.";
    return text;
}

void LostSightForm::goToSelected() {
    if (const TreeNode* const node = tree.selected())
        showContact(lost_[static_cast<std::size_t>(std::get<int>(node->tag()))].id);
}

}  // namespace pelk
