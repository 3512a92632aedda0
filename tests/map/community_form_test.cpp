// The form with the picture of the community.

#include "map/CommunityForm.h"

#include "map/picture_saving.h"
#include "tests/map/map_fixture.h"
#include "tests/support/core_platform.h"
#include "tests/support/tree_text.h"

namespace pelk {
namespace {

std::string contact(int id, const std::string& name, const std::string& address) {
    return "<contact id='" + std::to_string(id) + "' name='" + name + "'><emails><email value='" +
           address + "'/></emails></contact>";
}

/// Returns three teams of four, one of them with a mailing list, in a chain.
std::unique_ptr<Database> threeTeams() {
    std::string contacts = contact(12, "", "team-list@lists.c");
    std::string relations;
    for (int id = 1; id <= 11; ++id)
        contacts += contact(
            id, "P" + std::to_string(id),
            id <= 4 ? std::to_string(id) + "@intel.com" : "a@host" + std::to_string(id) + ".com");
    for (int id = 1; id <= 12; ++id) {
        for (int other = id + 1; (other - 1) / 4 == (id - 1) / 4; ++other)
            relations += relation(id, other, other == 12 ? "1" : "9");
        if (id % 4 == 1 && id > 1)
            relations += relation(id - 4, id, "1");
    }
    return databaseWith(contacts, relations);
}

class CommunityFormTest : public testing::Test {
 protected:
    CommunityFormTest() {
        form.database = database.get();
        form.hidden = &hidden;
        form.contactSelected = [this](int id) { reported.push_back(id); };
        form.fill();
        form.show();
        driver.settle();
    }

    /// Returns where the person is while the whole picture is in view.
    CanvasPoint placeOf(int id) {
        const Arrangement shown = arrangeCommunity(makeGraph(*database, {}));
        const CanvasSize size = form.picture.size();
        const SceneView view = viewOfAll(shown, size.width, size.height, {});
        const Point place = shown.positions[static_cast<std::size_t>(id) - 1];
        return {place.x * view.scale + view.offset.x, place.y * view.scale + view.offset.y};
    }

    std::string textOf(Control& control) { return driver.textOf(control); }

    CorePlatform core;
    Driver& driver = core.driver();
    const std::unique_ptr<Database> database = threeTeams();
    History history;
    HiddenContacts hidden{[this]() -> const History& { return history; }};
    CommunityForm form{core.ui(), core.platform()};
    std::vector<int> reported;
};

TEST_F(CommunityFormTest, listsGroupsWithTheirPeople) {
    EXPECT_EQ(shownRows(driver, form.peopleTree), "intel.com (4), P5 (4), P9 (4)");
    EXPECT_EQ(shownRows(driver, form.peopleTree, {1}), "P5, P6, P7, P8");
    EXPECT_EQ(form.peopleTree.detail(*form.peopleTree.model().root().children()[0]->children()[0]),
              "28 e-mails");
    EXPECT_EQ(textOf(form.countLabel),
              "12 people in 3 groups. Only the links that matter most are drawn.");
    driver.expand(form.peopleTree, {2});
    hidden.hide(true);
    form.refresh();
    EXPECT_EQ(shownRows(driver, form.peopleTree), "intel.com (4), P5 (4), P9 (3)");
    EXPECT_FALSE(driver.rows(form.peopleTree)[1].expanded);
    EXPECT_TRUE(driver.rows(form.peopleTree)[2].expanded);
    EXPECT_EQ(textOf(form.search.status), "1 hidden");
    driver.resize(*form.window, {1000, 1000});
    for (Control* const control :
         std::initializer_list<Control*>{&form.treeLabel, &form.countLabel, &form.zoomInButton,
                                         &form.zoomOutButton, &form.showAllButton, &form.goButton,
                                         &form.chainButton, &form.saveButton, &form.printButton})
        EXPECT_TRUE(driver.showsWholeText(*control)) << textOf(*control);
}

TEST_F(CommunityFormTest, sharesItsSelectionWithTheListAndTheView) {
    EXPECT_FALSE(driver.isEnabled(form.goButton));
    driver.click(form.picture, placeOf(6));
    EXPECT_EQ(driver.selectedText(form.peopleTree), "P6");
    EXPECT_EQ(textOf(form.selectedLabel), "P6: 3 relations, 27 e-mails");
    driver.clickRow(form.peopleTree, {1, 3});
    EXPECT_EQ(textOf(form.selectedLabel), "P8: 3 relations, 27 e-mails");
    form.select(1);
    EXPECT_EQ(driver.selectedText(form.peopleTree), "P1");
    EXPECT_EQ(reported, (std::vector<int>{6, 8})) << "not what the view itself has selected";
    int shown = 0;
    form.showContact = [&shown](int id) { shown = id; };
    driver.click(form.goButton);
    EXPECT_EQ(shown, 1);
    form.openCircle = [&shown](int id) { shown = id; };
    driver.point(form.picture, PointerAct::DoubleClick, placeOf(6));
    EXPECT_EQ(shown, 6);
    form.select(99);
    EXPECT_EQ(driver.selectedText(form.peopleTree), std::nullopt);
    EXPECT_EQ(textOf(form.selectedLabel), "");
}

TEST_F(CommunityFormTest, findsPeopleAndMarksThem) {
    const auto picture = [this] { return driver.pictureOf(form.picture); };
    const std::vector<std::uint32_t> before = picture();
    driver.type(form.search.box, "p1");
    EXPECT_EQ(textOf(form.search.status), "1 of 3") << "with P10 and P11";
    EXPECT_EQ(driver.selectedText(form.peopleTree), "P1") << "who has most e-mails";
    EXPECT_EQ(reported.back(), 1);
    const std::vector<std::uint32_t> found = picture();
    EXPECT_NE(found, before);
    driver.press(*form.window, Key::Enter);
    EXPECT_EQ(textOf(form.search.status), "2 of 3");
    driver.press(*form.window, Key::Escape);
    form.select(0);
    EXPECT_EQ(picture(), before);
    form.select(1);
    driver.clickRow(form.peopleTree, {1});
    EXPECT_NE(picture(), before) << "its people are marked";
    EXPECT_FALSE(driver.isEnabled(form.goButton)) << "nobody is selected";
}

TEST_F(CommunityFormTest, marksAChainWithAllItsPeople) {
    hidden.hide(true);
    form.refresh();
    EXPECT_FALSE(driver.isEnabled(form.chainButton));
    form.showChain({1, 5, 9, 12});
    EXPECT_EQ(shownRows(driver, form.peopleTree), "intel.com (4), P5 (4), P9 (4)");
    EXPECT_EQ(textOf(form.selectedLabel), "Marked: the chain from P1 to team-list@lists.c");
    form.refresh();
    EXPECT_TRUE(driver.isEnabled(form.chainButton)) << "marks stay after a change";
    driver.click(form.chainButton);
    EXPECT_EQ(shownRows(driver, form.peopleTree), "intel.com (4), P5 (4), P9 (3)");
    EXPECT_EQ(textOf(form.selectedLabel), "");
}

TEST_F(CommunityFormTest, savesAndPrintsThePicture) {
    core.dialogs.expectFile("Saving the picture", kPictureFileFilterWithPdf, "/p.svg");
    driver.click(form.saveButton);
    EXPECT_NE(core.files.files["/p.svg"].find(">P11<"), std::string::npos);
    driver.click(form.printButton);
    EXPECT_EQ(core.pictures.printed, "12 people, grouped by their e-mails");
}

TEST_F(CommunityFormTest, followsTheDatabase) {
    driver.click(form.picture, placeOf(11));
    database->removeContacts({5, 6, 7, 8, 9, 10, 11});
    form.refresh();
    EXPECT_EQ(shownRows(driver, form.peopleTree), "intel.com (4)");
    EXPECT_FALSE(driver.isEnabled(form.goButton)) << "the selected person is gone";
    database->removeContacts({1, 2, 3, 4});
    form.refresh();
    EXPECT_EQ(shownRows(driver, form.peopleTree), "");
    EXPECT_FALSE(driver.isEnabled(form.saveButton));
    EXPECT_EQ(textOf(form.countLabel),
              "There are no relations to show yet. A scan of the mail finds them.");
}

}  // namespace
}  // namespace pelk
