#include "views/ShowForm.h"

#include <gtest/gtest.h>

#include "tests/support/core_platform.h"

namespace pelk {
namespace {

/// Ann (id 1) wrote 200 e-mails with Zoe, 100 with bob, 10 with Carl; nobody else knows anybody.
constexpr const char* kCommunity =
    "<pelkDB date='2026-11-20T00:00:00' totalMails='310' totalContacts='5' maxInd='50' minInd='5'>"
    "<contacts><contact id='1' name='Ann'><emails><email value='a@a'/><email value='a@b'/></emails>"
    "</contact><contact id='2' name='Zoe'><emails><email value='zoe@a'/></emails></contact>"
    "<contact id='3' name='bob'><emails><email value='bob@a'/></emails></contact>"
    "<contact id='4' name='Carl'><emails><email value='carl@a'/></emails></contact>"
    "<contact id='5' name='Anouk'><emails/></contact></contacts>"
    "<relations total='0'><relation part1='1' part2='2' weight='200'/>"
    "<relation part1='1' part2='3' weight='100'/><relation part1='1' part2='4' weight='10'/>"
    "<relation part1='4' part2='4' weight='7'/></relations></pelkDB>";

struct StrengthLook {
    const char* name;
    TreeImage image;
    Color color;
};
constexpr StrengthLook kLooks[] = {{" strong", TreeImage::One, {255, 0, 0}},
                                   {" medium", TreeImage::Two, {0, 0, 255}},
                                   {" weak", TreeImage::Three, {100, 100, 100}}};

class ShowFormTest : public ::testing::Test {
 protected:
    CorePlatform core;
    Driver& driver = core.driver();
    std::unique_ptr<Database> database = loadDocument(kCommunity);
    ShowForm form{core.toolkit(), core.platform()};

    void SetUp() override {
        open();
        form.show();
        driver.settle();
    }
    void open() {
        form.database = database.get();
        form.startShowing();
    }
    /// The texts of the rows, and the strength that image and colour tell of.
    std::string rows(const TreePath& parent = {}) {
        std::string all;
        for (const TreeRow& row : driver.rows(form.presTree, parent)) {
            all += (all.empty() ? "" : ", ") + row.text;
            for (const auto& [name, image, color] : kLooks)
                all += row.image == image && row.color == color ? name : "";
        }
        return all;
    }
    std::string expanded(int row) {
        driver.expand(form.presTree, {row});
        return rows({row});
    }
    std::string foundBy(const std::string& answer) {
        core.dialogs.expectInput("", "Enter the first letters of the contact you want to find:", "",
                                 answer);
        driver.click(form.gotoButton);
        return driver.selectedText(form.presTree).value_or("");
    }
};

TEST_F(ShowFormTest, showsTotalsAndContactsInAlphabeticalOrder) {
    EXPECT_EQ(driver.captionOf(*form.window), "Relations Tree");
    EXPECT_EQ(driver.textOf(form.dLabel1), "Total parsed mails: 310");
    EXPECT_EQ(driver.textOf(form.dLabel2), "Total contacts: 5");
    EXPECT_EQ(rows(), "Ann (a@a/a@b), Anouk (, bob (bob@a), Carl (carl@a), Zoe (zoe@a)");
    for (const TreeRow& row : driver.rows(form.presTree)) {
        EXPECT_TRUE(row.hasExpander);
        EXPECT_EQ(row.image, TreeImage::Contact);
        EXPECT_FALSE(row.color);
    }
}

TEST_F(ShowFormTest, expandsAContactIntoItsColouredRelations) {
    EXPECT_EQ(expanded(0), "bob medium, Carl weak, Zoe strong");
    EXPECT_FALSE(driver.rows(form.presTree, {0})[2].hasExpander);
    EXPECT_EQ(expanded(3), "Ann weak, Carl weak") << "a self-relation shows once";
    EXPECT_EQ(expanded(1), "") << "a contact without relations";
    driver.collapse(form.presTree, {0});
    EXPECT_EQ(rows({0}), "Loading...");
}

TEST_F(ShowFormTest, measuresByTheThresholdsOfTheMomentAndTheStrongestRelationOfItsOpening) {
    std::string document = kCommunity;
    database = loadDocument(document.replace(document.find("minInd='5'"), 10, "minInd='50'"));
    for (int mail = 0; mail < 400; ++mail)
        database->addMailBetween(2, 3);
    form.database = database.get();
    EXPECT_EQ(expanded(0), "bob weak, Carl weak, Zoe strong");
    open();
    EXPECT_EQ(expanded(0), "bob weak, Carl weak, Zoe weak") << "200 of 400";
}

TEST_F(ShowFormTest, refreshShowsWhatHasChanged) {
    database->addContact("Aaron", "aaron@a");
    EXPECT_EQ(driver.rows(form.presTree).size(), 5U);
    driver.click(form.refreshButton);
    EXPECT_EQ(driver.rows(form.presTree).size(), 6U);
    EXPECT_EQ(driver.rows(form.presTree)[0].text, "Aaron (aaron@a)");
}

TEST_F(ShowFormTest, goToSelectsTheFirstMatchInTheOrderOfInsertion) {
    EXPECT_EQ(foundBy("an"), "Ann (a@a/a@b)");
    EXPECT_EQ(foundBy("ANO"), "Anouk (");
    EXPECT_EQ(foundBy(""), "Anouk (") << "nothing happens";
    EXPECT_EQ(foundBy("nobody"), "Anouk (") << "nothing happens";
    EXPECT_EQ(expanded(3), "Ann weak, Carl weak");
    EXPECT_EQ(foundBy("carl"), "Carl (carl@a)") << "older than the child of the same name";
    driver.collapse(form.presTree, {3});
    EXPECT_EQ(foundBy("loading"), "Carl (carl@a)") << "a placeholder is nobody";
}

TEST_F(ShowFormTest, laysOutItsControlsFromTheBottomEdge) {
    driver.resize(*form.window, {7000, 5000});
    const Size inner = form.window->innerSize();
    EXPECT_NEAR(driver.boundsOf(form.presTree).width, inner.width, 20);
    EXPECT_NEAR(driver.boundsOf(form.presTree).height, inner.height - 600, 20);
    EXPECT_NEAR(driver.boundsOf(form.gotoButton).top, inner.height - 250, 20);
    EXPECT_NEAR(driver.boundsOf(form.refreshButton).top, inner.height - 550, 20);
    for (Button* button : {&form.gotoButton, &form.refreshButton})
        EXPECT_TRUE(driver.showsWholeText(*button));
    for (Label* label : {&form.dLabel1, &form.dLabel2}) {
        EXPECT_NEAR(driver.boundsOf(*label).top, inner.height - 550, 20);
        EXPECT_TRUE(driver.showsWholeText(*label));
    }
}

TEST_F(ShowFormTest, readsADocumentThatBreaksEveryPromise) {
    database = loadDocument(
        "<pelkDB><contacts><contact id='1'/><contact id='1' name='Twin'><emails>"
        "<email/><email value='t@x'/></emails></contact><contact name='No id'/></contacts>"
        "<relations><relation part1='1' part2='9' weight='x'/><relation part1='1'/></relations>"
        "</pelkDB>");
    open();
    EXPECT_EQ(driver.textOf(form.dLabel1), "Total parsed mails: ");
    EXPECT_EQ(rows(), " (, No id (, Twin (t@x)");
    EXPECT_EQ(expanded(0), " weak,  weak");
    EXPECT_EQ(expanded(1), "");
}

}  // namespace
}  // namespace pelk
