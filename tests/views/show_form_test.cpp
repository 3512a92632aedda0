#include "views/ShowForm.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/core_platform.h"
#include "views/strength.h"

namespace pelk {
namespace {

TEST(Strength, dividesAtTheThresholds) {
    const Thresholds thresholds{50, 5};
    EXPECT_EQ(strengthOf(101, 200, thresholds), Strength::Strong);
    EXPECT_EQ(strengthOf(100, 200, thresholds), Strength::Medium);
    EXPECT_EQ(strengthOf(11, 200, thresholds), Strength::Medium);
    EXPECT_EQ(strengthOf(10, 200, thresholds), Strength::Weak);
    EXPECT_EQ(strengthOf(1, 0, thresholds), Strength::Strong);
    EXPECT_EQ(strengthOf(0, 0, thresholds), Strength::Weak);
}

/// Ann (id 1) wrote 200 e-mails with Zoe, 100 with bob, 10 with Carl; nobody else knows anybody.
constexpr const char* kCommunity =
    "<pelkDB date='2026-11-20T00:00:00' totalMails='310' totalContacts='5' maxInd='50' minInd='5'>"
    "<contacts><contact id='1' name='Ann'><emails><email value='ann@a.example'/>"
    "<email value='ann@b.example'/></emails></contact>"
    "<contact id='2' name='Zoe'><emails><email value='zoe@a.example'/></emails></contact>"
    "<contact id='3' name='bob'><emails><email value='bob@a.example'/></emails></contact>"
    "<contact id='4' name='Carl'><emails><email value='carl@a.example'/></emails></contact>"
    "<contact id='5' name='Anouk'><emails/></contact></contacts>"
    "<relations total='0'><relation part1='1' part2='2' weight='200'/>"
    "<relation part1='1' part2='3' weight='100'/><relation part1='1' part2='4' weight='10'/>"
    "<relation part1='4' part2='4' weight='7'/></relations></pelkDB>";

class ShowFormTest : public ::testing::Test {
 protected:
    CorePlatform core;
    Driver& driver = core.driver();
    std::unique_ptr<Database> database = loadDocument(kCommunity);
    ShowForm form{core.toolkit(), core.platform()};

    void SetUp() override {
        form.database = database.get();
        form.startShowing();
        form.show();
        driver.settle();
    }
    std::vector<std::string> texts(const TreePath& parent = {}) {
        std::vector<std::string> texts;
        for (const TreeRow& row : driver.rows(form.presTree, parent))
            texts.push_back(row.text);
        return texts;
    }
    void goTo(const std::string& answer) {
        core.dialogs.expectInput("", "Enter the first letters of the contact you want to find:", "",
                                 answer);
        driver.click(form.gotoButton);
    }
};

TEST_F(ShowFormTest, showsTotalsAndContactsInAlphabeticalOrder) {
    EXPECT_EQ(driver.captionOf(*form.window), "Relations Tree");
    EXPECT_EQ(driver.textOf(form.dLabel1), "Total parsed mails: 310");
    EXPECT_EQ(driver.textOf(form.dLabel2), "Total contacts: 5");
    EXPECT_EQ(texts(), (std::vector<std::string>{"Ann (ann@a.example/ann@b.example)", "Anouk (",
                                                 "bob (bob@a.example)", "Carl (carl@a.example)",
                                                 "Zoe (zoe@a.example)"}));
    for (const TreeRow& row : driver.rows(form.presTree)) {
        EXPECT_TRUE(row.hasExpander);
        EXPECT_EQ(row.image, TreeImage::Contact);
        EXPECT_FALSE(row.color);
    }
    EXPECT_EQ(driver.selectedText(form.presTree), std::nullopt);
}

TEST_F(ShowFormTest, expandsAContactIntoItsColouredRelations) {
    driver.expand(form.presTree, {0});
    const std::vector<TreeRow> rows = driver.rows(form.presTree, {0});
    ASSERT_EQ(texts({0}), (std::vector<std::string>{"bob", "Carl", "Zoe"}));
    EXPECT_EQ(rows[0].color, (Color{0, 0, 255}));
    EXPECT_EQ(rows[0].image, TreeImage::Two);
    EXPECT_EQ(rows[1].color, (Color{100, 100, 100}));
    EXPECT_EQ(rows[1].image, TreeImage::Three);
    EXPECT_EQ(rows[2].color, (Color{255, 0, 0}));
    EXPECT_EQ(rows[2].image, TreeImage::One);
    EXPECT_FALSE(rows[2].hasExpander);

    driver.expand(form.presTree, {
                                     3,
                                 });
    EXPECT_EQ(texts({3}), (std::vector<std::string>{"Ann", "Carl"}))
        << "a self-relation shows once";
    driver.expand(form.presTree, {1});
    EXPECT_EQ(texts({1}), std::vector<std::string>{}) << "a contact without relations";
}

TEST_F(ShowFormTest, collapsingEmptiesANodeUntilItIsExpandedAgain) {
    driver.expand(form.presTree, {0});
    driver.collapse(form.presTree, {0});
    EXPECT_EQ(texts({0}), (std::vector<std::string>{"Loading..."}));
    database =
        loadDocument(std::string(kCommunity)
                         .replace(std::string(kCommunity).find("minInd='5'"), 10, "minInd='60'"));
    form.database = database.get();
    driver.expand(form.presTree, {0});
    EXPECT_EQ(texts({0}), (std::vector<std::string>{"bob", "Carl", "Zoe"}));
    EXPECT_EQ(driver.rows(form.presTree, {0})[0].image, TreeImage::Three)
        << "by the thresholds of this moment";
}

TEST_F(ShowFormTest, measuresAgainstTheStrongestRelationOfItsOpening) {
    for (int mail = 0; mail < 300; ++mail)
        database->addMailBetween(2, 3);
    driver.expand(form.presTree, {0});
    EXPECT_EQ(driver.rows(form.presTree, {0})[2].image, TreeImage::One);
    form.startShowing();
    driver.settle();
    driver.expand(form.presTree, {0});
    EXPECT_EQ(driver.rows(form.presTree, {0})[2].image, TreeImage::One) << "200 of 300 is strong";
    EXPECT_EQ(driver.rows(form.presTree, {0})[0].image, TreeImage::Two);
}

TEST_F(ShowFormTest, refreshShowsWhatHasChanged) {
    database->addContact("Aaron", "aaron@a.example");
    EXPECT_EQ(texts().size(), 5U);
    driver.click(form.refreshButton);
    EXPECT_EQ(texts().front(), "Aaron (aaron@a.example)");
    EXPECT_EQ(texts().size(), 6U);
}

TEST_F(ShowFormTest, goToSelectsTheFirstMatchInTheOrderOfInsertion) {
    goTo("an");
    EXPECT_EQ(driver.selectedText(form.presTree), "Ann (ann@a.example/ann@b.example)");
    goTo("ANO");
    EXPECT_EQ(driver.selectedText(form.presTree), "Anouk (");
    goTo("");
    goTo("nobody");
    EXPECT_EQ(driver.selectedText(form.presTree), "Anouk (") << "nothing happens";
    driver.expand(form.presTree, {3});
    goTo("carl (");
    EXPECT_EQ(driver.selectedText(form.presTree), "Carl (carl@a.example)");
    goTo("carl");
    EXPECT_EQ(driver.selectedText(form.presTree), "Carl (carl@a.example)")
        << "its node is older than the child of the same name";
    driver.collapse(form.presTree, {3});
    goTo("loading");
    EXPECT_EQ(driver.selectedText(form.presTree), "Carl (carl@a.example)")
        << "a placeholder is nobody";
}

TEST_F(ShowFormTest, laysOutItsControlsFromTheBottomEdge) {
    driver.resize(*form.window, {7000, 5000});
    const Size inner = form.window->innerSize();
    const auto near = [](int value, int expected) { return std::abs(value - expected) <= 20; };
    EXPECT_TRUE(near(driver.boundsOf(form.presTree).width, inner.width));
    EXPECT_TRUE(near(driver.boundsOf(form.presTree).height, inner.height - 600));
    EXPECT_TRUE(near(driver.boundsOf(form.gotoButton).top, inner.height - 250));
    for (Control* control :
         {static_cast<Control*>(&form.dLabel1), static_cast<Control*>(&form.dLabel2),
          static_cast<Control*>(&form.refreshButton)})
        EXPECT_TRUE(near(driver.boundsOf(*control).top, inner.height - 550));
    for (Button* button : {&form.gotoButton, &form.refreshButton})
        EXPECT_TRUE(driver.showsWholeText(*button));
    for (Label* label : {&form.dLabel1, &form.dLabel2})
        EXPECT_TRUE(driver.showsWholeText(*label));
}

TEST_F(ShowFormTest, readsADocumentThatBreaksEveryPromise) {
    database = loadDocument(
        "<pelkDB><contacts><contact id='1'/><contact id='1' name='Twin'><emails>"
        "<email/><email value='t@x'/></emails></contact><contact name='No id'/></contacts>"
        "<relations><relation part1='1' part2='9' weight='x'/><relation part1='1'/></relations>"
        "</pelkDB>");
    form.database = database.get();
    form.startShowing();
    driver.settle();
    EXPECT_EQ(driver.textOf(form.dLabel1), "Total parsed mails: ");
    EXPECT_EQ(texts(), (std::vector<std::string>{" (", "No id (", "Twin (t@x)"}));
    driver.expand(form.presTree, {0});
    EXPECT_EQ(texts({0}).size(), 2U);
    driver.expand(form.presTree, {1});
    EXPECT_EQ(texts({1}).size(), 0U);
}

}  // namespace
}  // namespace pelk
