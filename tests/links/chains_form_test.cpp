// The form that shows the chains between two domains, with more of them than it expands at once.

#include "links/ShowFindFormDomains.h"
#include "tests/links/chains.h"
#include "tests/support/test_platform.h"
#include "tests/support/tree_text.h"

namespace pelk {
namespace {

/// Chain k, counted from 0, costs 3000 - k, except that chain 1200 is the best one.
class ChainsFormTest : public ::testing::Test {
 protected:
    static constexpr int kChains = 1500;
    static constexpr int kBest = 1200;

    TestPlatform platform;
    Driver& driver = platform.driver();
    std::unique_ptr<Database> database = databaseOf(
        4, {{1, 2, "2"}, {2, 3, "1"}, {3, 4, "1"}},
        "<contact id='1' name='Ann'/><contact id='2' name='Bob'/><contact id='3' name='Cy'/>"
        "<contact id='4' name='Zoe'/>");
    ShowFindFormDomains form{platform.toolkit(), platform.language()};

    void SetUp() override {
        std::vector<LinkChain> chains;
        for (int chain = 0; chain < kChains; ++chain)
            chains.push_back({{1, 2, 3}, 3000 - chain});
        chains[kBest] = {{2, 3, 4}, 7};
        form.db = database.get();
        form.sourceDomain = "a";
        form.targetDomain = "b";
        form.fill(chains);
        form.show();
        driver.settle();
    }
    std::string chain(int row) {
        std::string all = driver.rows(form.presTree, {0})[static_cast<std::size_t>(row)].text;
        for (TreePath at{0, row}; !driver.rows(form.presTree, at).empty(); at.push_back(0))
            all += " > " + shownRows(driver, form.presTree, at);
        return all;
    }
    std::string detail(int row) {
        return form.presTree.detail(
            *form.presTree.model().firstByIndex()->children()[static_cast<std::size_t>(row)]);
    }
    bool isExpanded(int row) {
        return driver.rows(form.presTree, {0})[static_cast<std::size_t>(row)].expanded;
    }
};

TEST_F(ChainsFormTest, completesAChainWhenItIsExpanded) {
    EXPECT_EQ(chain(0), "Ann ( > Bob ( strong > Cy ( strong");
    EXPECT_TRUE(isExpanded(0));
    EXPECT_FALSE(isExpanded(1300));
    driver.expand(form.presTree, {0, 1300});
    driver.settle();
    EXPECT_EQ(chain(1300), chain(0));
    EXPECT_TRUE(driver.rows(form.presTree, {0, 1300})[0].expanded) << "to its end";
    EXPECT_EQ(detail(1300), "cost 1700, 2 relations");
    driver.collapse(form.presTree, {0, 1300});
    driver.expand(form.presTree, {0, 1300});
    EXPECT_EQ(chain(1300), chain(0));

    database->renameContact(1, "Al");
    form.refresh();
    EXPECT_EQ(chain(1300), "Al ( > Bob ( strong > Cy ( strong");
    EXPECT_EQ(driver.rows(form.presTree, {0})[1400].text, "Al (");
}

TEST_F(ChainsFormTest, bringsTheBestChainIntoView) {
    driver.click(form.shortestButton);
    driver.settle();
    EXPECT_EQ(driver.selectedText(form.presTree), "Bob (");
    for (const TreePath& row : {TreePath{0, kBest}, TreePath{0, kBest, 0, 0}})
        EXPECT_TRUE(driver.isInView(form.presTree, row));
    EXPECT_FALSE(isExpanded(0));
    EXPECT_FALSE(isExpanded(kBest + 1));
}

TEST_F(ChainsFormTest, ordersAndLimitsTheChains) {
    driver.click(form.costOrder);
    EXPECT_EQ(detail(0), "cost 7, 2 relations");
    EXPECT_EQ(detail(1), "cost 1501, 2 relations");
    EXPECT_EQ(chain(0), "Bob ( > Cy ( strong > Zoe ( strong");
    driver.type(form.search.box, "zo");
    EXPECT_EQ(driver.rows(form.presTree, {0}).size(), 1U);
    EXPECT_EQ(driver.textOf(form.search.status), "1 of 1");
    driver.type(form.search.box, "zoa");
    EXPECT_EQ(driver.rows(form.presTree, {0}).size(), 0U);
    driver.click(form.shortestButton);
    driver.giveFocus(form.search.box);
    driver.press(*form.window, Key::Escape);
    driver.click(form.foundOrder);
    EXPECT_EQ(driver.rows(form.presTree, {0}).size(), 1500U);
    EXPECT_EQ(detail(0), "cost 3000, 2 relations");
}

TEST_F(ChainsFormTest, showsTheRestOfManyHitsWhenItIsExpanded) {
    const auto rows = [this] { return driver.rows(form.presTree, {0}); };
    driver.type(form.search.box, "ann");
    EXPECT_EQ(driver.textOf(form.search.status), "1 of 1499");
    EXPECT_EQ(rows().size(), 1001U);
    EXPECT_EQ(rows().back().text, "499 more chains");
    EXPECT_EQ(detail(1000), "");
    form.refresh();
    driver.expand(form.presTree, {0, 1000});
    driver.settle();
    EXPECT_EQ(rows().size(), 1499U);
    EXPECT_EQ(chain(1000), "Ann ( > Bob ( strong > Cy ( strong");
    EXPECT_EQ(detail(1498), "cost 1501, 2 relations");
    driver.type(form.search.box, "bob");
    EXPECT_EQ(rows().size(), 1001U);
    driver.press(*form.window, Key::Up);
    EXPECT_EQ(driver.textOf(form.search.status), "1500 of 1500");
    EXPECT_TRUE(driver.isInView(form.presTree, {0, 1499}));
    driver.type(form.search.box, "cy");
    driver.click(form.shortestButton);
    EXPECT_TRUE(driver.isInView(form.presTree, {0, kBest}));
}

}  // namespace
}  // namespace pelk
