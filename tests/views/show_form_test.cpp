#include "tests/views/show_form_fixture.h"

namespace pelk {
namespace {

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

TEST_F(ShowFormTest, usesCurrentThresholdsAndTheStrongestRelationAtOpening) {
    std::string document = kCommunity;
    database = loadDocument(document.replace(document.find("minInd='5'"), 10, "minInd='50'"));
    for (int mail = 0; mail < 400; ++mail)
        database->addMailBetween(2, 3);
    form.database = database.get();
    EXPECT_EQ(expanded(0), "bob weak, Carl weak, Zoe strong");
    driver.click(form.refreshButton);
    EXPECT_EQ(rows({0}), "bob weak, Carl weak, Zoe strong") << "it is not measured again";
    open();
    EXPECT_EQ(rows({0}), "bob weak, Carl weak, Zoe weak") << "200 of 400";
}

TEST_F(ShowFormTest, refreshShowsWhatHasChanged) {
    database->addContact("Aaron", "aaron@a");
    EXPECT_EQ(driver.rows(form.presTree).size(), 5U);
    driver.click(form.refreshButton);
    EXPECT_EQ(driver.rows(form.presTree).size(), 6U);
    EXPECT_EQ(driver.rows(form.presTree)[0].text, "Aaron (aaron@a)");
}

TEST_F(ShowFormTest, refreshKeepsWhatIsExpandedSelectedAndInView) {
    for (int id = 0; id < 100; ++id)
        database->addContact("X" + std::to_string(100 + id), std::to_string(id) + "@x");
    driver.click(form.refreshButton);
    expanded(3);
    driver.clickRow(form.presTree, {3, 0});
    form.presTree.scrollToTop(*form.presTree.model().root().children()[3]);
    database->addContact("Aaron", "aaron@a");
    driver.click(form.refreshButton);
    EXPECT_EQ(rows({4}), "Ann weak, Carl weak");
    EXPECT_EQ(driver.selectedText(form.presTree), "Ann");
    EXPECT_EQ(form.presTree.firstVisible()->text(), "Carl (carl@a)");
    driver.collapse(form.presTree, {4});

    driver.click(form.domainsRadio);
    driver.expand(form.presTree, {0});
    const std::string labels = rows({0});
    driver.click(form.refreshButton);
    EXPECT_EQ(rows({0}), labels);
    driver.collapse(form.presTree, {0});
}

TEST_F(ShowFormTest, showsTheFirstRowsOfAnotherGrouping) {
    for (int contact = 0; contact < 60; ++contact)
        database->addContact("x", "x@d" + std::to_string(contact));
    driver.click(form.refreshButton);
    form.presTree.select(form.presTree.model().root().children().back());
    for (Control* const radio :
         std::initializer_list<Control*>{&form.domainsRadio, &form.namesRadio}) {
        driver.click(*radio);
        driver.settle();
        EXPECT_TRUE(driver.isInView(form.presTree, {0}));
        form.presTree.select(form.presTree.model().root().children().back());
    }
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

TEST_F(ShowFormTest, obeysKeys) {
    EXPECT_EQ(foundBy("bob"), "bob (bob@a)");
    EXPECT_TRUE(driver.hasFocus(form.presTree));
    core.dialogs.expectInput("Rename", "Enter the new name of the contact", "bob (bob@a)", "Rob");
    driver.press(*form.window, "F2");
    EXPECT_EQ(driver.rows(form.presTree)[2].text, "Rob");
    driver.press(*form.window, "F5");
    EXPECT_EQ(driver.rows(form.presTree)[3].text, "Rob (bob@a)");
    driver.press(*form.window, "Alt+D");
    EXPECT_TRUE(driver.isChecked(form.domainsRadio));
    driver.press(*form.window, "F2");
    driver.press(*form.window, "Esc");
    EXPECT_FALSE(driver.isVisible(*form.window));
}

TEST_F(ShowFormTest, laysOutItsControlsFromTheBottomEdge) {
    driver.resize(*form.window, {7000, 5000});
    const Size inner = form.window->innerSize();
    EXPECT_NEAR(driver.boundsOf(form.presTree).width, inner.width, 20);
    EXPECT_NEAR(driver.boundsOf(form.presTree).height, inner.height - 600, 20);
    EXPECT_NEAR(driver.boundsOf(form.refreshButton).top, inner.height - 550, 20);
    for (Control* control :
         std::initializer_list<Control*>{&form.Picture1, &form.namesRadio, &form.Picture2,
                                         &form.domainsRadio, &form.gotoButton})
        EXPECT_NEAR(driver.boundsOf(*control).top, inner.height - 250, 20);
    for (Control* control :
         std::initializer_list<Control*>{&form.namesRadio, &form.domainsRadio, &form.gotoButton,
                                         &form.refreshButton, &form.dLabel1, &form.dLabel2})
        EXPECT_TRUE(driver.showsWholeText(*control));
    for (Button* button : {&form.refreshButton, &form.gotoButton}) {
        const Rect bounds = driver.boundsOf(*button);
        EXPECT_NEAR(bounds.left + bounds.width, inner.width - 60, 30);
    }
    for (Label* label : {&form.dLabel1, &form.dLabel2})
        EXPECT_NEAR(driver.boundsOf(*label).top, inner.height - 550, 20);
}

TEST_F(ShowFormTest, readsADocumentThatBreaksEveryInvariant) {
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
