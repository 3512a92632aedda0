// The search fields of the relations view, and the search behind them.

#include <random>

#include "tests/views/show_form_fixture.h"
#include "views/word_search.h"

namespace pelk {
namespace {

class SearchTest : public ShowFormTest {
 protected:
    /// What is selected and what the field says after typing the query.
    std::string searchFor(const std::string& query) {
        driver.type(form.search.box, query);
        return shown();
    }
    std::string pressed(Key key) {
        driver.press(*form.window, key);
        return shown();
    }
    std::string shown() {
        driver.settle();
        return driver.selectedText(form.presTree).value_or("none") + ": " +
               driver.textOf(form.search.status);
    }
};

TEST_F(SearchTest, showsTheHitsInTheOrderOfTheTree) {
    database->addContact("Zoë Ångström", "z@other");
    driver.click(form.refreshButton);
    EXPECT_EQ(searchFor("A"), "Ann (a@a/a@b): 1 of 6");
    EXPECT_EQ(searchFor("zo angst"), "Zoë Ångström (z@other): 1 of 1");
    EXPECT_EQ(searchFor("@A O"), "bob (bob@a): 1 of 2");
    EXPECT_EQ(pressed(Key::Enter), "Zoe (zoe@a): 2 of 2");
    EXPECT_EQ(pressed(Key::Down), "bob (bob@a): 1 of 2");
    EXPECT_EQ(pressed(Key::Up), "Zoe (zoe@a): 2 of 2");
    EXPECT_EQ(searchFor("q"), "Zoe (zoe@a): nothing found");
    EXPECT_EQ(pressed(Key::Enter), "Zoe (zoe@a): nothing found");
    EXPECT_EQ(searchFor(" "), "Zoe (zoe@a): ");
    driver.press(*form.window, Key::Escape);
    EXPECT_EQ(driver.textOf(form.search.box), "");
    EXPECT_TRUE(driver.hasFocus(form.presTree));
    EXPECT_TRUE(driver.isVisible(*form.window)) << "Esc only leaves the field";
}

TEST_F(SearchTest, findsAddressesInTheirDomains) {
    database->addContact("Dee", "dee@x.b");
    driver.click(form.domainsRadio);
    EXPECT_EQ(searchFor("zoe"), "zoe (Zoe): 1 of 1");
    EXPECT_EQ(searchFor("ann"), "a (Ann): 1 of 2");
    EXPECT_EQ(pressed(Key::Enter), "a (Ann): 2 of 2");
    EXPECT_EQ(searchFor("x.b"), "dee (Dee): 1 of 1");
    EXPECT_TRUE(driver.rows(form.presTree, {1})[1].expanded);
    EXPECT_TRUE(driver.isInView(form.presTree, {1, 1, 0}));
    driver.click(form.namesRadio);
    EXPECT_EQ(driver.textOf(form.search.box), "");
    EXPECT_EQ(searchFor("dee"), "Dee (dee@x.b): 1 of 1");
}

TEST_F(SearchTest, followsTheDatabase) {
    EXPECT_EQ(searchFor("bob"), "bob (bob@a): 1 of 1");
    core.dialogs.expectMessage("Do you want to delete this contact ?", Buttons::OkCancel,
                               Answer::Ok);
    driver.chooseAt(form.presTree, {2}, "Delete");
    EXPECT_EQ(shown(), "none: nothing found");
    database->addContact("Bobby", "b@b");
    EXPECT_EQ(searchFor("bob"), "Ann (a@a/a@b): nothing found") << "the tree has no Bobby yet";
    driver.click(form.refreshButton);
    EXPECT_EQ(shown(), "Ann (a@a/a@b): 1 found");
}

TEST_F(SearchTest, isReachedByKeysAndSaysThatGoToFoundNothing) {
    for (const char* keys : {"Ctrl+F", "/"}) {
        driver.giveFocus(form.presTree);
        driver.press(*form.window, keys);
        EXPECT_TRUE(driver.hasFocus(form.search.box)) << keys;
    }
    EXPECT_EQ(foundBy("nobody"), "");
    EXPECT_EQ(shown(), "none: nothing found");
    EXPECT_EQ(foundBy("ann"), "Ann (a@a/a@b)");
    EXPECT_EQ(shown(), "Ann (a@a/a@b): ");
}

TEST(WordSearch, FindsTheSameHoweverTheQueryWasTyped) {
    const std::unique_ptr<Language> language = makeLanguage();
    WordSearch typed(*language);
    std::mt19937 random(5);
    const auto anyText = [&random](std::size_t length) {
        std::string text;
        while (text.size() < length)
            text += "aab "[random() % 4];
        return text;
    };
    std::vector<std::string> texts;
    for (int text = 0; text < 60; ++text) {
        texts.push_back(anyText(5));
        typed.add(texts.back());
    }
    std::string query;
    for (int key = 0; key < 2000; ++key) {
        random() % 3 == 0 ? query.clear() : void(query += anyText(1));
        WordSearch fresh(*language);
        for (const std::string& text : texts)
            fresh.add(text);
        EXPECT_EQ(typed.find(query), fresh.find(query)) << query;
    }
}

}  // namespace
}  // namespace pelk
