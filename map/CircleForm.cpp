#include "map/CircleForm.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/utf8.h"
#include "views/relation_totals.h"

namespace pelk {
namespace {

constexpr Size kInnerSize{9900, 6300};
/// A picture wants room; the user may make the form smaller.
constexpr Size kFirstInnerSize{13200, 9000};
constexpr int kWidth = kInnerSize.width - 2 * kFormMargin;
constexpr int kLineHeight = 260;
constexpr int kChoicesTop = 500;
constexpr int kAreaTop = 900;
constexpr int kListWidth = 2900;
constexpr int kListLeft = kInnerSize.width - kFormMargin - kListWidth;
constexpr int kButtonsTop = kInnerSize.height - kFormMargin - kFormButton.height;
constexpr int kPersonTop = kButtonsTop - kFormMargin - kLineHeight;
constexpr int kAreaHeight = kPersonTop - kAreaTop - kFormMargin / 2;
constexpr int kTreeTop = kAreaTop + kLineHeight;
constexpr int kNarrowButton = 1100;

/// More people than that would be a crowd in which nobody can be told from the others.
constexpr int kMostPeople = 150;
constexpr int kFirstPeople = 40;
constexpr const char* kPeopleSetting = "circlePeople";
constexpr const char* kFromSetting = "circleFrom";
constexpr const char* kHint = "Double-click a person to see the people around that one.";

constexpr Rect choice(int left, int width) {
    return {left, kChoicesTop, width, kLineHeight};
}

/// The buttons at the left of the bottom row, counted from 0.
constexpr Rect leftButton(int number) {
    return {kFormMargin + number * (kNarrowButton + kFormMargin / 2), kButtonsTop, kNarrowButton,
            kFormButton.height};
}

/// Returns the number if the text is one from 0 to `most`.
int numberIn(const std::string& text, int most, int otherwise) {
    int number = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber = fault == std::errc() && end == text.data() + text.size();
    return isNumber && number >= 0 && number <= most ? number : otherwise;
}

std::string joined(const std::vector<std::string>& facts, const char* separator) {
    std::string text;
    for (const std::string& fact : facts)
        text += (text.empty() ? "" : separator) + fact;
    return text;
}

}  // namespace

CircleForm::CircleForm(const UserInterface& ui)
    : window(ui.toolkit.createWindow()),
      titleLabel(window->addLabel({}, "")),
      peopleLabel(window->addLabel({}, "People:")),
      peopleSlider(window->addSlider({})),
      countLabel(window->addLabel({}, "")),
      fromLabel(window->addLabel({}, "Relations:")),
      allRadio(window->addOptionButton({}, "A&ll")),
      mediumRadio(window->addOptionButton({}, "&Medium and strong")),
      strongRadio(window->addOptionButton({}, "&Strong")),
      area(window->addDrawingArea({})),
      listLabel(window->addLabel({}, "People in the picture:")),
      tree(window->addTreeView({})),
      personLabel(window->addLabel({}, kHint)),
      backButton(window->addButton({}, "&Back")),
      zoomInButton(window->addButton({}, "Zoom &in")),
      zoomOutButton(window->addButton({}, "Zoom &out")),
      showAllButton(window->addButton({}, "Show &all")),
      okButton(window->addButton({}, "OK")),
      settings_(ui.settings),
      layout_(*window, kInnerSize),
      picture_(area),
      people_(tree, database) {
    window->setCaption("Picture of a contact");
    place();
    connect();
    restoreChoices();
    window->setInnerSize(kFirstInnerSize);
}

void CircleForm::place() {
    layout_.add(titleLabel, {kFormMargin, kFormMargin, kWidth, kLineHeight}, kAnchorTop);
    peopleLabel.setBounds(choice(kFormMargin, 800));
    peopleSlider.setBounds(choice(kFormMargin + 800, 2200));
    countLabel.setBounds(choice(kFormMargin + 3060, 1300));
    fromLabel.setBounds(choice(kFormMargin + 4460, 1000));
    allRadio.setBounds(choice(kFormMargin + 5460, 700));
    mediumRadio.setBounds(choice(kFormMargin + 6220, 2100));
    strongRadio.setBounds(choice(kFormMargin + 8380, 1150));
    layout_.add(area, {kFormMargin, kAreaTop, kListLeft - 2 * kFormMargin, kAreaHeight},
                kAnchorFill);
    layout_.add(listLabel, {kListLeft, kAreaTop, kListWidth, kLineHeight}, {1, 0, 0, 0});
    layout_.add(tree, {kListLeft, kTreeTop, kListWidth, kAreaTop + kAreaHeight - kTreeTop},
                {1, 0, 0, 1});
    layout_.add(personLabel, {kFormMargin, kPersonTop, kWidth, kLineHeight}, kAnchorBottom);
    int number = 0;
    for (Button* const button : {&backButton, &zoomInButton, &zoomOutButton, &showAllButton})
        layout_.add(*button, leftButton(number++), {0, 1, 0, 0});
    layout_.add(okButton, bottomButton(kInnerSize, 1), kAnchorBottomRight);
}

void CircleForm::connect() {
    peopleSlider.onChange = [this] {
        wanted_ = peopleSlider.value();
        settings_.write(kPeopleSetting, std::to_string(wanted_));
        showPeople();
    };
    allRadio.onClick = [this] { chooseFrom(Strength::Weak); };
    mediumRadio.onClick = [this] { chooseFrom(Strength::Medium); };
    strongRadio.onClick = [this] { chooseFrom(Strength::Strong); };
    picture_.tipOf = [this](const GraphPerson& person) { return joined(factsOf(person), "\n"); };
    picture_.onSelect = [this](int id) {
        picture_.setFound({});
        people_.select(id);
        selectionChanged(id);
    };
    picture_.onActivate = [this](int id) { goTo(id); };
    people_.onSelect = [this](int id) {
        picture_.setFound({});
        picture_.select(id);
        selectionChanged(id);
    };
    people_.onSelectGroup = [this](const std::vector<int>& ids) {
        picture_.select(0);
        picture_.setFound(ids);
        selectionChanged(0);
    };
    people_.onActivate = [this](int id) { goTo(id); };
    backButton.onClick = [this] { goBack(); };
    window->setShortcut(Shortcut::Back, [this] { goBack(); });
    zoomInButton.onClick = [this] { picture_.zoomIn(); };
    zoomOutButton.onClick = [this] { picture_.zoomOut(); };
    showAllButton.onClick = [this] { picture_.showAll(); };
    okButton.onClick = [this] { window->hide(); };
}

void CircleForm::restoreChoices() {
    wanted_ = std::max(
        1, numberIn(settings_.read(kPeopleSetting).value_or(""), kMostPeople, kFirstPeople));
    from_ = Strength{numberIn(settings_.read(kFromSetting).value_or(""),
                              static_cast<int>(Strength::Weak), static_cast<int>(Strength::Weak))};
    OptionButton* const radios[] = {&strongRadio, &mediumRadio, &allRadio};
    radios[static_cast<std::size_t>(from_)]->setChecked(true);
}

void CircleForm::chooseFrom(Strength from) {
    from_ = from;
    settings_.write(kFromSetting, std::to_string(static_cast<int>(from)));
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
    picture_.show(arrangeCircle(strongestAround(around_, static_cast<std::size_t>(wanted_))));
    const std::size_t shown = picture_.arrangement().graph.people.size() - 1;
    countLabel.setText(std::to_string(shown) + " of " + std::to_string(around_.people.size() - 1));
    titleLabel.setText(title());
    people_.fill(picture_.arrangement());
    for (TreeNode* const node : tree.model().root().children())
        if (!node->children().empty())
            tree.setExpanded(*node, true);
    people_.select(picture_.selected());
    selectionChanged(picture_.selected());
}

void CircleForm::showNobody() {
    around_ = {};
    peopleSlider.setEnabled(false);
    picture_.show({});
    people_.fill({});
    countLabel.setText("");
    titleLabel.setText("This contact is no longer in the database.");
    selectionChanged(0);
}

std::string CircleForm::title() const {
    const std::string name = labelOf(around_.people.front().contact);
    const std::size_t shown = picture_.arrangement().graph.people.size() - 1;
    if (shown == 0)
        return name + " has no relations" + (from_ == Strength::Weak ? "." : " of this strength.");
    return name + " and " +
           (shown == 1 ? "the person" : "the " + std::to_string(shown) + " people") +
           " nearest by e-mail";
}

void CircleForm::selectionChanged(int contactId) {
    std::string text = kHint;
    for (const GraphPerson& person : picture_.arrangement().graph.people)
        if (person.contact.id == contactId)
            text = joined(factsOf(person), ", ");
    personLabel.setText(text);
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
