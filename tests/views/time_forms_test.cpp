// The forms about time: over time, lost sight of.

#include <gtest/gtest.h>

#include "tests/support/core_platform.h"
#include "tests/support/tree_text.h"
#include "views/LostSightForm.h"
#include "views/OverTimeForm.h"

namespace pelk {
namespace {

using Rows = std::vector<std::string>;

/// Ann exchanged 100 e-mails with Bob and 40 with Cy.
constexpr const char* kCommunity =
    "<pelkDB date='2026-11-20T00:00:00' totalMails='140' totalContacts='3' maxInd='50' minInd='5'>"
    "<contacts><contact id='1' name='Ann'><emails><email value='ann@a'/></emails></contact>"
    "<contact id='2' name='Bob'><emails><email value='bob@b'/></emails></contact>"
    "<contact id='3'><emails><email value='cy@c'/></emails></contact></contacts>"
    "<relations total='0'><relation part1='1' part2='2' weight='100'/>"
    "<relation part1='1' part2='3' weight='40'/></relations></pelkDB>";

class TimeFormsTest : public testing::Test {
 protected:
    CorePlatform core;
    Driver& driver = core.driver();
    std::unique_ptr<Database> database = loadDocument(kCommunity);
    History history;
    std::vector<std::string> own;

    template <typename Form>
    void prepare(Form& form) {
        form.database = database.get();
        form.history = [this]() -> const History& { return history; };
        form.show();
    }
};

TEST_F(TimeFormsTest, ShowsAnExchangeByYearAndByMonth) {
    OverTimeForm form(core.toolkit());
    prepare(form);
    form.fill(1, 2);
    EXPECT_EQ(driver.textOf(form.titleLabel), "Ann and Bob");
    EXPECT_EQ(driver.textOf(form.daysLabel), "The history begins with the next scan.");
    history.countMail("ann@a", "bob@b", 20241130);
    history.countMail("ann@a", "bob@b", 20241201);
    history.countMail("bob@b", "ann@a", 20260203);
    const auto without = driver.pictureOf(form.chart);
    form.refresh();
    driver.settle();
    EXPECT_EQ(driver.textOf(form.daysLabel), "First e-mail: 2024-11-30. Last e-mail: 2026-02-03.");
    EXPECT_EQ(driver.textOf(form.sentLabel), "From Ann to Bob: 2 e-mails");
    EXPECT_EQ(driver.textOf(form.receivedLabel), "From Bob to Ann: 1 e-mail");
    EXPECT_EQ(
        driver.rowsOf(form.table),
        (Rows{"2024: 2 sent, 0 received", "2025: 0 sent, 0 received", "2026: 0 sent, 1 received"}));
    EXPECT_NE(driver.pictureOf(form.chart), without);
    driver.click(form.monthRadio);
    ASSERT_EQ(driver.rowsOf(form.table).size(), 16u);
    EXPECT_EQ(driver.rowsOf(form.table)[1], "2024-12: 1 sent, 0 received");
    form.fill(3);
    EXPECT_EQ(driver.textOf(form.titleLabel), "cy@c and all others");
    EXPECT_EQ(driver.textOf(form.daysLabel), "The history knows no e-mail between them.");
    EXPECT_EQ(driver.rowsOf(form.table), Rows());
    EXPECT_EQ(driver.textOf(form.sentLabel), "");
    database->removeContacts({2});
    form.fill(1, 2);
    EXPECT_EQ(driver.textOf(form.titleLabel), "Ann and a deleted contact");
    driver.click(form.okButton);
    EXPECT_FALSE(driver.isVisible(*form.window));
}

TEST_F(TimeFormsTest, ListsWhomTheUserOrAContactHasLostSightOf) {
    LostSightForm form(core.toolkit(), core.clock);
    form.ownAddresses = [this] { return own; };
    int shown = 0;
    form.showContact = [&shown](int id) { shown = id; };
    prepare(form);
    form.fillForUser();
    EXPECT_EQ(driver.textOf(form.countLabel), "The history begins with the next scan.");
    history.countMail("bob@b", "ann@a", 20250203);
    form.refresh();
    EXPECT_EQ(driver.textOf(form.countLabel),
              "Your own addresses are not known yet. The next scan finds them.");
    own = {"ann@a"};
    form.refresh();
    EXPECT_EQ(driver.textOf(form.titleLabel), "People you have lost sight of");
    EXPECT_EQ(driver.textOf(form.countLabel), "1 contact. The history has no e-mail with 1 more.");
    EXPECT_EQ(shownRows(driver, form.tree), "Bob strong");
    EXPECT_EQ(form.tree.detail(*form.tree.model().root().children()[0]),
              "100 e-mails, the last on 2025-02-03");
    EXPECT_FALSE(driver.isEnabled(form.goButton)) << "nothing is selected";
    EXPECT_FALSE(driver.isEnabled(form.userButton));
    driver.clickRow(form.tree, {0});
    driver.click(form.goButton);
    EXPECT_EQ(shown, 2);
    history.countMail("cy@c", "ann@a", 20240203);
    driver.click(form.twoYearsRadio);
    EXPECT_EQ(shownRows(driver, form.tree), "cy@c medium");
    driver.doubleClickRow(form.tree, {0});
    EXPECT_EQ(shown, 3);
    driver.click(form.fiveYearsRadio);
    EXPECT_EQ(shownRows(driver, form.tree), "");
    EXPECT_TRUE(driver.showsWholeText(form.countLabel)) << driver.textOf(form.countLabel);
    driver.click(form.halfYearRadio);
    form.fill(3);
    EXPECT_EQ(driver.textOf(form.titleLabel), "People cy@c has lost sight of");
    EXPECT_EQ(shownRows(driver, form.tree), "Ann medium");
    driver.click(form.userButton);
    EXPECT_EQ(shownRows(driver, form.tree), "Bob strong, cy@c medium");
    EXPECT_EQ(driver.textOf(form.countLabel), "2 contacts, the strongest relation first.");
    HiddenContacts hidden([this]() -> const History& { return history; });
    hidden.hide(true);
    form.hidden = &hidden;
    history.record("bob@b").listBy = "List-Post";
    form.refresh();
    EXPECT_EQ(shownRows(driver, form.tree), "cy@c medium");
    EXPECT_EQ(driver.textOf(form.countLabel), "1 contact. 1 hidden.");
    for (Control* const control : std::initializer_list<Control*>{
             &form.titleLabel, &form.timeLabel, &form.halfYearRadio, &form.yearRadio,
             &form.twoYearsRadio, &form.fiveYearsRadio, &form.goButton, &form.userButton})
        EXPECT_TRUE(driver.showsWholeText(*control)) << driver.textOf(*control);
}

}  // namespace
}  // namespace pelk
