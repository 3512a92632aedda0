#include "map/CircleForm.h"

#include <algorithm>
#include <cstdint>

#include "map/picture_files.h"
#include "platform/utf8.h"
#include "views/relation_totals.h"

namespace pelk {
namespace {

/// A picture wants room; the user may make the form smaller.
constexpr Size kUsualSize{13200, 9000};
constexpr int kSliderTop = kFormMargin + 40;
constexpr int kRadioTop = 2 * kFormMargin + kFormButton.height;
constexpr int kPictureTop = kRadioTop + kPictureRowHeight + kFormMargin;

/// More people than that would be a crowd in which nobody can be told from the others.
constexpr int kMostPeople = 150;
constexpr int kFirstPeople = 40;
constexpr const char* kPeopleSetting = "circlePeople";
constexpr const char* kFromSetting = "circleFrom";
constexpr const char* kHint = "Double-click a person to see the people around that one.";

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
      layout_(*window, kPictureFormSize),
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
    peopleLabel.setBounds({1450, kSliderTop, 750, kPictureRowHeight});
    layout_.add(peopleSlider, {2200, kSliderTop, 2400, kPictureRowHeight}, kAnchorTop);
    layout_.add(countLabel, {4700, kSliderTop, 1300, kPictureRowHeight}, kAnchorTopRight);
    fromLabel.setBounds({kFormMargin, kRadioTop, 1000, kPictureRowHeight});
    allRadio.setBounds({1450, kRadioTop, 750, kPictureRowHeight});
    mediumRadio.setBounds({2300, kRadioTop, 2100, kPictureRowHeight});
    strongRadio.setBounds({4500, kRadioTop, 1200, kPictureRowHeight});
    placePicture(layout_, controls(), kPictureTop);
}

PictureControls CircleForm::controls() {
    return {zoomInButton, zoomOutButton, showAllButton, titleLabel, picture,     treeLabel,
            peopleTree,   personLabel,   goButton,      saveButton, printButton, okButton};
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
    goButton.onClick = [this] { showContact(view_.selected()); };
    connectPicture(controls(), *window, view_, ui_, platform_);
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
    std::string title = pictureTitle(view_.arrangement());
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
