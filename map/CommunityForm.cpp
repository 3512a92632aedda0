#include "map/CommunityForm.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "views/contact_text.h"
#include "views/deletion_text.h"
#include "views/relation_totals.h"

namespace pelk {
namespace {

/// More people than that cannot be told apart, and take longer than a second.
constexpr std::size_t kMostPeople = 3000;

constexpr Size kUsualSize{14400, 9300};
constexpr int kSearchTop = kFormMargin + 40;
constexpr int kPictureTop = 2 * kFormMargin + kFormButton.height;
constexpr int kChainWidth = 1600;

/// Shows the hourglass while it exists.
class BusyPointer {
 public:
    explicit BusyPointer(Window& window) : window_(window) { window.setBusyPointer(true); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
    ~BusyPointer() { window_.setBusyPointer(false); }

 private:
    Window& window_;
};

}  // namespace

CommunityForm::CommunityForm(const UserInterface& ui, const Platform& platform)
    : window(ui.toolkit.createWindow()),
      treeLabel(window->addLabel({}, "Groups and people")),
      peopleTree(window->addTreeView({})),
      search(*window, peopleTree, "Search names and addresses"),
      zoomInButton(window->addButton({}, "Zoom &in")),
      zoomOutButton(window->addButton({}, "Zoom &out")),
      showAllButton(window->addButton({}, "Show &all")),
      countLabel(window->addLabel({}, "")),
      picture(window->addDrawingArea({})),
      selectedLabel(window->addLabel({}, "")),
      goButton(window->addButton({}, "&Show in the relations view")),
      chainButton(window->addButton({}, "&Forget the chain")),
      saveButton(window->addButton({}, "Sa&ve picture...")),
      printButton(window->addButton({}, "&Print...")),
      okButton(window->addButton({}, "OK")),
      ui_(ui),
      platform_(platform),
      layout_(*window, kPictureFormSize),
      view_(picture),
      people_(peopleTree, database),
      hits_(*this, platform.language) {
    window->setCaption("Picture of the community");
    place();
    window->setInnerSize(kUsualSize);
    search.setTarget(hits_);
    setHandlers();
}

void CommunityForm::place() {
    search.place(layout_, kFormMargin, kSearchTop, kZoomLeft - 2 * kFormMargin);
    placePicture(layout_, controls(), kPictureTop);
    layout_.add(chainButton,
                {2 * kFormMargin + kGoWidth, kPictureButtonTop, kChainWidth, kFormButton.height},
                kAnchorBottomLeft);
}

PictureControls CommunityForm::controls() {
    return {zoomInButton, zoomOutButton, showAllButton, countLabel, picture,     treeLabel,
            peopleTree,   selectedLabel, goButton,      saveButton, printButton, okButton};
}

void CommunityForm::setHandlers() {
    view_.onSelect = [this](int id) { selectByUser(id); };
    people_.onSelect = [this](int id) { selectByUser(id); };
    people_.onSelectGroup = [this](const std::vector<int>& ids) {
        view_.select(0);
        view_.setFound(ids);
        showSelected();
    };
    view_.onActivate = people_.onActivate = [this](int id) {
        if (openCircle)
            openCircle(id);
    };
    view_.tipOf = [this](const GraphPerson& person) {
        return describe(person.contact) + "\n" + contactDetail(*database, person.contact.id);
    };
    window->setShortcut(Shortcut::Find, [this] { search.focus(); });
    window->setShortcut(Shortcut::Refresh, [this] { refresh(); });
    goButton.onClick = [this] { showContact(view_.selected()); };
    chainButton.onClick = [this] { showChain({}); };
    connectPicture(controls(), *window, view_, ui_, platform_);
}

void CommunityForm::fill() {
    GraphFilter filter{Strength::Weak, kMostPeople, hiddenIds(hidden, *database), chain_};
    {
        const BusyPointer busy(*window);
        view_.show(arrangeCommunity(makeGraph(*database, std::move(filter))));
        people_.fill(view_.arrangement());
    }
    search.setIdleText(hiddenText(hidden, *database));
    search.searchAgain();
    view_.setPath(chain_);
    people_.select(view_.selected());
    chainButton.setEnabled(!chain_.empty());
    for (Button* const button : {&saveButton, &printButton})
        button->setEnabled(!view_.arrangement().graph.people.empty());
    showCounts();
    showSelected();
}

void CommunityForm::showChain(std::vector<int> contactIds) {
    chain_ = std::move(contactIds);
    view_.select(0);
    fill();
}

void CommunityForm::select(int contactId) {
    view_.select(contactId);
    people_.select(contactId);
    showSelected();
}

/// The marks of a search come back where those of a group were.
void CommunityForm::selectByUser(int contactId) {
    search.searchAgain();
    select(contactId);
    if (contactId != 0 && contactSelected)
        contactSelected(contactId);
}

void CommunityForm::showSelected() {
    const int id = view_.selected();
    goButton.setEnabled(id != 0);
    if (id != 0)
        selectedLabel.setText(nameOf(id) + ": " + contactDetail(*database, id));
    else if (!chain_.empty())
        selectedLabel.setText("Marked: the chain from " + nameOf(chain_.front()) + " to " +
                              nameOf(chain_.back()));
    else
        selectedLabel.setText("");
}

std::string CommunityForm::nameOf(int contactId) const {
    return nameForUser(*database, contactId);
}

void CommunityForm::showCounts() {
    const Arrangement& shown = view_.arrangement();
    const std::size_t people = shown.graph.people.size();
    if (people == 0) {
        countLabel.setText("There are no relations to show yet. A scan of the mail finds them.");
        return;
    }
    const std::string groups =
        counted(static_cast<std::int64_t>(groupSizes(shown.groups).size()), "group");
    countLabel.setText(people >= kMostPeople ? "The " + std::to_string(people) +
                                                   " people with most e-mails, in " + groups + "."
                                             : std::to_string(people) + " people in " + groups +
                                                   ". Only the links that matter most are drawn.");
}

std::size_t CommunityForm::Hits::find(const std::string& query) {
    const std::vector<GraphPerson>& people = form_.view_.arrangement().graph.people;
    const auto personOf = [&people](int id) {
        return std::lower_bound(
            people.begin(), people.end(), id,
            [](const GraphPerson& person, int wanted) { return person.contact.id < wanted; });
    };
    ids_ = contacts_.find(*form_.database, query);
    std::erase_if(ids_, [&](int id) {
        const auto person = personOf(id);
        return person == people.end() || person->contact.id != id;
    });
    std::stable_sort(ids_.begin(), ids_.end(),
                     [&](int a, int b) { return personOf(a)->mails > personOf(b)->mails; });
    form_.view_.setFound(ids_);
    return ids_.size();
}

void CommunityForm::Hits::show(std::size_t hit) {
    form_.select(ids_[hit]);
    if (form_.contactSelected)
        form_.contactSelected(ids_[hit]);
}

void CommunityForm::Hits::noQuery() {
    ids_.clear();
    form_.view_.setFound({});
}

}  // namespace pelk
