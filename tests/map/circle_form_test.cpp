// The form with the people around a contact.

#include "map/CircleForm.h"
#include "map/picture_saving.h"
#include "tests/map/map_fixture.h"
#include "tests/support/core_platform.h"
#include "tests/support/tree_text.h"

namespace pelk {
namespace {

/// Ann (1) exchanged 100 e-mails with Bob, 40 with Cy, 3 with Dee and 1 with a list; Bob 30 with
/// Cy. Fay (6) has no relations.
std::unique_ptr<Database> community() {
    std::string contacts;
    for (const char* const name : {"Ann", "Bob", "Cy", "Dee", "", "Fay"}) {
        const std::string id =
            std::to_string(1 + std::count(contacts.begin(), contacts.end(), '@'));
        contacts += "<contact id='" + id + "' name='" + name + "'><emails><email value='" +
                    (id == "5" ? "team-list@lists" : id + "@x") + "'/></emails></contact>";
    }
    return databaseWith(contacts, relation(1, 2, "100") + relation(1, 3, "40") +
                                      relation(1, 4, "3") + relation(1, 5, "1") +
                                      relation(2, 3, "30"));
}

class CircleFormTest : public testing::Test {
 protected:
    CircleFormTest() { open(form); }

    void open(CircleForm& opened) {
        opened.database = database.get();
        opened.hidden = &hidden;
        opened.fill(1);
        opened.show();
        driver.settle();
    }
    std::string textOf(Control& control) { return driver.textOf(control); }
    /// Returns the list, with the people of a group in parentheses.
    std::string listed() {
        std::string text;
        const std::vector<TreeRow> rows = driver.rows(form.peopleTree);
        for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
            text += (row == 0 ? "" : "; ") + rows[static_cast<std::size_t>(row)].text;
            if (rows[static_cast<std::size_t>(row)].expanded)
                text += ": " + shownRows(driver, form.peopleTree, {row});
        }
        return text;
    }
    void press(const std::string& keys) {
        driver.press(*form.window, keys);
        driver.settle();
    }

    CorePlatform core;
    Driver& driver = core.driver();
    const std::unique_ptr<Database> database = community();
    History history;
    HiddenContacts hidden{[this]() -> const History& { return history; }};
    CircleForm form{core.ui(), core.platform()};
};

TEST_F(CircleFormTest, showsSoManyPeopleWithRelationsOfThatStrength) {
    EXPECT_EQ(textOf(form.titleLabel), "Ann and the 4 people nearest by e-mail");
    EXPECT_EQ(textOf(form.countLabel), "4 of 4");
    EXPECT_EQ(listed(), "Ann; x (2): Bob, Cy; Dee (1): Dee; team-list@lists (1): team-list@lists");
    driver.move(form.peopleSlider, 1);
    EXPECT_EQ(textOf(form.titleLabel), "Ann and the person nearest by e-mail");
    EXPECT_EQ(textOf(form.countLabel), "1 of 4");
    driver.move(form.peopleSlider, 3);
    driver.click(form.mediumRadio);
    EXPECT_EQ(textOf(form.countLabel), "2 of 2");
    driver.click(form.strongRadio);
    EXPECT_EQ(listed(), "Ann; Bob (1): Bob");
    EXPECT_FALSE(driver.isEnabled(form.peopleSlider));

    CircleForm later(core.ui(), core.platform());
    open(later);
    EXPECT_TRUE(driver.isChecked(later.strongRadio)) << "remembered";
    driver.click(later.allRadio);
    EXPECT_EQ(textOf(later.countLabel), "3 of 4") << "remembered, too";
    hidden.hide(true);
    later.refresh();
    EXPECT_EQ(textOf(later.countLabel), "3 of 3") << "without lists";
    later.fill(6);
    EXPECT_EQ(textOf(later.titleLabel), "Fay has no relations.");
    EXPECT_EQ(textOf(later.countLabel), "0 of 0");
}

TEST_F(CircleFormTest, putsAnotherPersonInTheMiddleAndGoesBack) {
    EXPECT_FALSE(driver.isEnabled(form.backButton));
    driver.doubleClickRow(form.peopleTree, {1, 0});
    EXPECT_EQ(textOf(form.titleLabel), "Bob and the 2 people nearest by e-mail");
    EXPECT_EQ(driver.selectedText(form.peopleTree), "Bob");
    driver.clickRow(form.peopleTree, {1, 1});
    driver.press(*form.window, Key::Enter);
    driver.settle();
    EXPECT_EQ(textOf(form.titleLabel), "Cy and the 2 people nearest by e-mail");
    press("Alt+Left");
    EXPECT_EQ(textOf(form.titleLabel), "Bob and the 2 people nearest by e-mail");
    driver.click(form.backButton);
    EXPECT_EQ(textOf(form.titleLabel), "Ann and the 4 people nearest by e-mail");
    press("Alt+Left");
    EXPECT_EQ(textOf(form.titleLabel), "Ann and the 4 people nearest by e-mail");

    form.fill(2);
    form.fill(4);
    database->removeContacts({2, 4});
    form.refresh();
    EXPECT_EQ(textOf(form.titleLabel), "This contact is no longer in the database.");
    EXPECT_FALSE(driver.isEnabled(form.saveButton));
    press("Alt+Left");
    EXPECT_EQ(textOf(form.titleLabel), "Ann and the 2 people nearest by e-mail")
        << "Bob is passed by";
    form.window->hide();
    form.fill(3);
    form.show();
    EXPECT_FALSE(driver.isEnabled(form.backButton)) << "it starts anew";
}

TEST_F(CircleFormTest, sharesItsSelectionBetweenPictureAndList) {
    int shown = 0;
    form.showContact = [&shown](int id) { shown = id; };
    EXPECT_FALSE(driver.isEnabled(form.goButton));
    const CanvasSize size = form.picture.size();
    const Arrangement circle = arrangeCircle(makeCircle(*database, 1, {}));
    const SceneView view = viewOfAll(circle, size.width, size.height, {});
    const Point bob = circle.positions[1] * view.scale + view.offset;
    const auto unmarked = driver.pictureOf(form.picture);
    driver.click(form.picture, {bob.x, bob.y});
    EXPECT_EQ(driver.selectedText(form.peopleTree), "Bob");
    EXPECT_EQ(textOf(form.personLabel), "Bob, 2@x, 100 e-mails with Ann");
    EXPECT_NE(driver.pictureOf(form.picture), unmarked);
    driver.clickRow(form.peopleTree, {1, 1});
    EXPECT_EQ(textOf(form.personLabel), "Cy, 3@x, 40 e-mails with Ann");
    driver.click(form.goButton);
    EXPECT_EQ(shown, 3);
    driver.clickRow(form.peopleTree, {0});
    EXPECT_EQ(textOf(form.personLabel), "Ann, 1@x, 144 e-mails with the people around");
    driver.clickRow(form.peopleTree, {1});
    EXPECT_FALSE(driver.isEnabled(form.goButton)) << "a group";
}

TEST_F(CircleFormTest, cutsNoTextAndSavesAndPrintsThePicture) {
    driver.resize(*form.window, {100, 100});
    for (Control* const control : std::initializer_list<Control*>{
             &form.backButton, &form.peopleLabel, &form.countLabel, &form.zoomInButton,
             &form.zoomOutButton, &form.showAllButton, &form.fromLabel, &form.allRadio,
             &form.mediumRadio, &form.strongRadio, &form.treeLabel, &form.titleLabel,
             &form.personLabel, &form.goButton, &form.saveButton, &form.printButton})
        EXPECT_TRUE(driver.showsWholeText(*control)) << textOf(*control);
    driver.click(form.printButton);
    EXPECT_EQ(core.pictures.printed, "Ann and the 4 people nearest by e-mail");
    core.dialogs.expectFile("Saving the picture", kPictureFileFilterWithPdf, "/data/a.svg");
    core.files.folders.insert("/data");
    driver.click(form.saveButton);
    EXPECT_NE(core.files.files["/data/a.svg"].find("Bob"), std::string::npos);
}

}  // namespace
}  // namespace pelk
