#include "map/CircleForm.h"

#include <algorithm>
#include <cstdint>

#include "map/picture_files.h"
#include "map/picture_saving.h"
#include "platform/utf8.h"
#include "views/relation_totals.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{10200, 6600};
/// A picture wants room; the user may make the form smaller.
constexpr Size kUsualSize{13200, 9000};
constexpr int kRowHeight = 260;
constexpr int kSliderTop = kFormMargin + 40;
constexpr int kRadioTop = 2 * kFormMargin + kFormButton.height;
constexpr int kLabelTop = kRadioTop + kRowHeight + kFormMargin;
constexpr int kTop = kLabelTop + kRowHeight;
constexpr int kTreeWidth = 3200;
constexpr int kTreeLeft = kInnerSize.width - kFormMargin - kTreeWidth;
constexpr int kPictureWidth = kTreeLeft - 2 * kFormMargin;
constexpr int kButtonTop = bottomButton(kInnerSize, 1).top;
constexpr int kPersonTop = kButtonTop - kFormMargin / 2 - kRowHeight;
constexpr int kHeight = kPersonTop - kFormMargin / 2 - kTop;
constexpr int kZoomWidth = 1100;
constexpr int kGoWidth = 2500;
constexpr int kSaveWidth = 1600;

/// Stays in the upper right corner with its size.
constexpr Anchor kAnchorTopRight{1, 0, 0, 0};
constexpr Anchor kAnchorBottomLeft{0, 1, 0, 0};
constexpr Anchor kAnchorRight{1, 0, 0, 1};

/// More people than that would be a crowd in which nobody can be told from the others.
constexpr int kMostPeople = 150;
constexpr int kFirstPeople = 40;
constexpr const char* kPeopleSetting = "circlePeople";
constexpr const char* kFromSetting = "circleFrom";
constexpr const char* kHint = "Double-click a person to see the people around that one.";

/// Counted from the right, from 1.
constexpr Rect zoomButton(int fromRight) {
    return {kInnerSize.width - fromRight * (kFormMargin + kZoomWidth), kFormMargin, kZoomWidth,
            kFormButton.height};
}

/// Returns the saved number, within the limits.
int savedNumber(const Settings& settings, const char* key, int otherwise, int least, int most) {
    const std::string text = settings.read(key).value_or(std::to_string(otherwise));
    return static_cast<int>(std::clamp<std::int64_t>(readInteger(text), least, most));
}

std::string joined(const std::vector<std::string>& facts, const char* separator) {
    std::string text;
    for (const std::string& fact : facts)
        text += (text.empty() ? "" : separator) + fact;
    return text;
}

}  // namespace

CircleForm::CircleForm(const UserInterface& ui, const Platform& platform)
    : window(ui.toolkit.createWindow()),
      backButton(window->addButton({}, "&Back")),
      peopleLabel(window->addLabel({}, "People:")),
      peopleSlider(window->addSlider({})),
      countLabel(window->addLabel({}, "")),
      zoomInButton(window->addButton({}, "Zoom &in")),
      zoomOutButton(window->addButton({}, "Zoom &out")),
      showAllButton(window->addButton({}, "Show &all")),
      fromLabel(window->addLabel({}, "Relations:")),
      allRadio(window->addOptionButton({}, "A&ll")),
      mediumRadio(window->addOptionButton({}, "&Medium and strong")),
      strongRadio(window->addOptionButton({}, "S&trong")),
      treeLabel(window->addLabel({}, "Groups and people")),
      peopleTree(window->addTreeView({})),
      titleLabel(window->addLabel({}, "")),
      picture(window->addDrawingArea({})),
      personLabel(window->addLabel({}, kHint)),
      goButton(window->addButton({}, "&Show in the relations view")),
      saveButton(window->addButton({}, "Sa&ve picture...")),
      printButton(window->addButton({}, "&Print...")),
      okButton(window->addButton({}, "OK")),
      ui_(ui),
      platform_(platform),
      layout_(*window, kInnerSize),
      view_(picture),
      people_(peopleTree, database) {
    window->setCaption("Picture of a contact");
    place();
    connect();
    restoreChoices();
    window->setInnerSize(kUsualSize);
}

void CircleForm::place() {
    backButton.setBounds({kFormMargin, kFormMargin, kZoomWidth, kFormButton.height});
    peopleLabel.setBounds({1450, kSliderTop, 750, kRowHeight});
    layout_.add(peopleSlider, {2200, kSliderTop, 2400, kRowHeight}, kAnchorTop);
    layout_.add(countLabel, {4700, kSliderTop, 1300, kRowHeight}, kAnchorTopRight);
    layout_.add(zoomInButton, zoomButton(3), kAnchorTopRight);
    layout_.add(zoomOutButton, zoomButton(2), kAnchorTopRight);
    layout_.add(showAllButton, zoomButton(1), kAnchorTopRight);
    fromLabel.setBounds({kFormMargin, kRadioTop, 1000, kRowHeight});
    allRadio.setBounds({1450, kRadioTop, 750, kRowHeight});
    mediumRadio.setBounds({2300, kRadioTop, 2100, kRowHeight});
    strongRadio.setBounds({4500, kRadioTop, 1200, kRowHeight});
    placeBelowChoices();
}

void CircleForm::placeBelowChoices() {
    layout_.add(titleLabel, {kFormMargin, kLabelTop, kPictureWidth, kRowHeight}, kAnchorTop);
    layout_.add(picture, {kFormMargin, kTop, kPictureWidth, kHeight}, kAnchorFill);
    layout_.add(treeLabel, {kTreeLeft, kLabelTop, kTreeWidth, kRowHeight}, kAnchorTopRight);
    layout_.add(peopleTree, {kTreeLeft, kTop, kTreeWidth, kHeight}, kAnchorRight);
    const int width = kInnerSize.width - 2 * kFormMargin;
    layout_.add(personLabel, {kFormMargin, kPersonTop, width, kRowHeight}, kAnchorBottom);
    layout_.add(goButton, {kFormMargin, kButtonTop, kGoWidth, kFormButton.height},
                kAnchorBottomLeft);
    Rect save = bottomButton(kInnerSize, 3);
    save.left -= kSaveWidth - save.width;
    save.width = kSaveWidth;
    layout_.add(saveButton, save, kAnchorBottomRight);
    layout_.add(printButton, bottomButton(kInnerSize, 2), kAnchorBottomRight);
    layout_.add(okButton, bottomButton(kInnerSize, 1), kAnchorBottomRight);
}

void CircleForm::connect() {
    peopleSlider.onChange = [this] {
        wanted_ = peopleSlider.value();
        ui_.settings.write(kPeopleSetting, std::to_string(wanted_));
        showPeople();
    };
    allRadio.onClick = [this] { chooseFrom(Strength::Weak); };
    mediumRadio.onClick = [this] { chooseFrom(Strength::Medium); };
    strongRadio.onClick = [this] { chooseFrom(Strength::Strong); };
    view_.tipOf = [this](const GraphPerson& person) { return joined(factsOf(person), "\n"); };
    view_.onSelect = [this](int id) {
        view_.setFound({});
        people_.select(id);
        selectionChanged(id);
    };
    view_.onActivate = [this](int id) { goTo(id); };
    people_.onSelect = [this](int id) {
        view_.setFound({});
        view_.select(id);
        selectionChanged(id);
    };
    people_.onSelectGroup = [this](const std::vector<int>& ids) {
        view_.select(0);
        view_.setFound(ids);
        selectionChanged(0);
    };
    people_.onActivate = [this](int id) { goTo(id); };
    backButton.onClick = [this] { goBack(); };
    window->setShortcut(Shortcut::Back, [this] { goBack(); });
    zoomInButton.onClick = [this] { view_.zoomIn(); };
    zoomOutButton.onClick = [this] { view_.zoomOut(); };
    showAllButton.onClick = [this] { view_.showAll(); };
    goButton.onClick = [this] { showContact(view_.selected()); };
    saveButton.onClick = [this] { savePicture(view_.arrangement(), ui_, platform_); };
    printButton.onClick = [this] { printPicture(view_.arrangement(), ui_); };
    okButton.onClick = [this] { window->hide(); };
}

void CircleForm::restoreChoices() {
    constexpr int kAll = static_cast<int>(Strength::Weak);
    wanted_ = savedNumber(ui_.settings, kPeopleSetting, kFirstPeople, 1, kMostPeople);
    from_ = Strength{savedNumber(ui_.settings, kFromSetting, kAll, 0, kAll)};
    OptionButton* const radios[] = {&strongRadio, &mediumRadio, &allRadio};
    radios[static_cast<std::size_t>(from_)]->setChecked(true);
}

void CircleForm::chooseFrom(Strength from) {
    from_ = from;
    ui_.settings.write(kFromSetting, std::to_string(static_cast<int>(from)));
    read();
}

void CircleForm::fill(int contactId) {
    if (!window->isVisible())
        trail_.clear();
    goTo(contactId);
}

void CircleForm::goTo(int contactId) {
    if (contactId != contactInMiddle())
        trail_.push_back(contactId);
    read();
}

/// Passes by contacts that have been deleted.
void CircleForm::goBack() {
    if (trail_.size() < 2)
        return;
    do
        trail_.pop_back();
    while (trail_.size() > 1 && !database->contact(contactInMiddle()));
    read();
}

void CircleForm::refresh() {
    read();
}

void CircleForm::read() {
    backButton.setEnabled(trail_.size() > 1);
    if (!database->contact(contactInMiddle()))
        return showNobody();
    around_ = makeCircle(*database, contactInMiddle(),
                         {from_, std::nullopt, hiddenIds(hidden, *database)});
    const int people =
        static_cast<int>(std::min<std::size_t>(around_.people.size() - 1, kMostPeople));
    peopleSlider.setRange(1, std::max(people, 1));
    peopleSlider.setValue(wanted_);
    peopleSlider.setEnabled(people > 1);
    showPeople();
}

void CircleForm::showPeople() {
    view_.show(arrangeCircle(strongestAround(around_, static_cast<std::size_t>(wanted_))));
    const std::size_t shown = view_.arrangement().graph.people.size() - 1;
    countLabel.setText(std::to_string(shown) + " of " + std::to_string(around_.people.size() - 1));
    titleLabel.setText(title());
    people_.fill(view_.arrangement());
    for (TreeNode* const node : peopleTree.model().root().children())
        if (!node->children().empty())
            peopleTree.setExpanded(*node, true);
    people_.select(view_.selected());
    selectionChanged(view_.selected());
    enableFiles(true);
}

void CircleForm::enableFiles(bool hasPicture) {
    saveButton.setEnabled(hasPicture);
    printButton.setEnabled(hasPicture);
}

void CircleForm::showNobody() {
    around_ = {};
    peopleSlider.setEnabled(false);
    view_.show({});
    people_.fill({});
    countLabel.setText("");
    titleLabel.setText("This contact is no longer in the database.");
    selectionChanged(0);
    enableFiles(false);
}

std::string CircleForm::title() const {
    const std::string title = pictureTitle(view_.arrangement());
    if (around_.people.size() > 1)
        return title;
    return title + " has no relations" + (from_ == Strength::Weak ? "." : " of this strength.");
}

void CircleForm::selectionChanged(int contactId) {
    std::string text = kHint;
    for (const GraphPerson& person : view_.arrangement().graph.people)
        if (person.contact.id == contactId)
            text = joined(factsOf(person), ", ");
    personLabel.setText(text);
    goButton.setEnabled(contactId != 0);
}

/// Returns the name, the first address, and the e-mails with the person in the middle; of that
/// person, those with all people shown.
std::vector<std::string> CircleForm::factsOf(const GraphPerson& person) const {
    std::vector<std::string> facts{labelOf(person.contact)};
    if (const std::string address = displayText(addressOf(person.contact));
        !address.empty() && address != facts[0])
        facts.push_back(address);
    const bool isMiddle = person.contact.id == contactInMiddle();
    facts.push_back(
        counted(static_cast<std::int64_t>(isMiddle ? person.mails : mailsWithMiddle(person)),
                "e-mail") +
        " with " + (isMiddle ? "the people around" : labelOf(around_.people.front().contact)));
    return facts;
}

double CircleForm::mailsWithMiddle(const GraphPerson& person) const {
    const auto link =
        std::find_if(around_.links.begin(), around_.links.end(), [&](const GraphLink& candidate) {
            return candidate.from == 0 &&
                   around_.people[candidate.to].contact.id == person.contact.id;
        });
    return link == around_.links.end() ? 0 : link->weight;
}

}  // namespace pelk
