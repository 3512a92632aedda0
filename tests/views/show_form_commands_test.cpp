#include "tests/views/show_form_fixture.h"

namespace pelk {
namespace {

using Captions = std::vector<std::string>;

class CommandsTest : public ShowFormTest {
 protected:
    /// The database in the file.
    std::unique_ptr<Database> saved() { return core.storage().loadDatabase().database; }

    /// Scripts the answer to the question before a deletion.
    void expectQuestion(const std::string& question, Answer answer) {
        core.dialogs.expectMessage(question, Buttons::OkCancel, answer);
    }
    void groupByDomains() {
        driver.click(form.domainsRadio);
        driver.settle();
    }
    void openDomain(const TreePath& row) { driver.expand(form.presTree, row); }
};

TEST_F(CommandsTest, groupsByDomainsAndBack) {
    groupByDomains();
    EXPECT_TRUE(driver.isChecked(form.domainsRadio));
    EXPECT_FALSE(driver.isChecked(form.namesRadio));
    EXPECT_EQ(rows(), "a, b") << "in order of appearance";
    const TreeRow placeholder = driver.rows(form.presTree, {0})[0];
    EXPECT_EQ(placeholder.text, "Loading...");
    EXPECT_EQ(placeholder.color, (Color{192, 192, 192}));
    database->addContact("Mo", "mo@deep.a");
    openDomain({0});
    EXPECT_EQ(rows({0}), "a (Ann), bob (bob), carl (Carl), deep, zoe (Zoe)");
    openDomain({0, 3});
    EXPECT_EQ(rows({0, 3}), "mo (Mo)");
    EXPECT_EQ(driver.rows(form.presTree, {0, 3})[0].image, TreeImage::Contact);
    EXPECT_EQ(foundBy("mo"), "mo (Mo)");
    driver.click(form.domainsRadio);
    EXPECT_EQ(rows({0, 3}), "mo (Mo)") << "the grouping that is shown is not built anew";
    driver.collapse(form.presTree, {0});
    EXPECT_EQ(rows({0}), "Loading...");
    EXPECT_FALSE(driver.rows(form.presTree, {0})[0].color);
    driver.click(form.refreshButton);
    EXPECT_EQ(rows(), "a, b");
    driver.click(form.namesRadio);
    EXPECT_EQ(driver.rows(form.presTree).size(), 6U);
}

TEST_F(CommandsTest, opensByNamesAfterItWasGroupedByDomains) {
    groupByDomains();
    open();
    EXPECT_TRUE(driver.isChecked(form.namesRadio));
    EXPECT_FALSE(driver.isChecked(form.domainsRadio));
    EXPECT_EQ(expanded(0), "bob medium, Carl weak, Zoe strong");
    groupByDomains();
    EXPECT_EQ(rows(), "a, b");
}

TEST_F(CommandsTest, offersTheMenuThatFitsTheNode) {
    EXPECT_EQ(driver.menuAt(form.presTree, {0}),
              (Captions{"Merge contacts", "Rename", "Delete", "Find the best link",
                        "Copy to clipboard"}));
    driver.expand(form.presTree, {0});
    EXPECT_EQ(driver.menuAt(form.presTree, {0, 1}),
              (Captions{"More details", "Copy to clipboard", "Go to this contact"}));
    groupByDomains();
    EXPECT_EQ(driver.menuAt(form.presTree, {0}),
              (Captions{"Delete", "Find all possible links", "Copy to clipboard"}));
    openDomain({0});
    EXPECT_EQ(
        driver.menuAt(form.presTree, {0, 0}),
        (Captions{"Delete", "Find all possible links", "Copy to clipboard", "View contacts"}));
}

TEST_F(CommandsTest, passesTheSelectionOn) {
    std::string handed;
    form.mergeContact = [&](int id, const std::string& text) {
        handed = text + "#" + std::to_string(id);
    };
    form.openDetails = [&](int id, int other) {
        handed = std::to_string(id) + "-" + std::to_string(other);
    };
    form.openContact = [&](const std::string& address) { handed = address; };
    form.findLinks = [&](int id) { handed = "links of " + std::to_string(id); };
    form.findDomainLinks = [&](const std::string& domain) { handed = "links of " + domain; };
    driver.chooseAt(form.presTree, {2}, "Merge contacts");
    EXPECT_EQ(handed, "bob (bob@a)#3");
    driver.chooseAt(form.presTree, {2}, "Find the best link");
    EXPECT_EQ(handed, "links of 3");
    driver.expand(form.presTree, {0});
    driver.chooseAt(form.presTree, {0, 2}, "More details");
    EXPECT_EQ(handed, "1-2");
    driver.chooseAt(form.presTree, {0, 2}, "Copy to clipboard");
    EXPECT_EQ(core.display.clipboard, "Zoe");
    groupByDomains();
    openDomain({1});
    driver.chooseAt(form.presTree, {1, 0}, "View contacts");
    EXPECT_EQ(handed, "a@b");
    driver.chooseAt(form.presTree, {1}, "Find all possible links");
    EXPECT_EQ(handed, "links of b");
    driver.chooseAt(form.presTree, {1, 0}, "Find all possible links");
    EXPECT_EQ(handed, "links of a@b");
}

TEST_F(CommandsTest, renamesAContactAndSavesIt) {
    const auto rename = [this](const std::string& shown, const std::string& answer) {
        core.dialogs.expectInput("Rename", "Enter the new name of the contact", shown, answer);
        driver.chooseAt(form.presTree, {2}, "Rename");
    };
    driver.expand(form.presTree, {0});
    rename("bob (bob@a)", "");
    rename("bob (bob@a)", "bob (bob@a)");
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(core.dialogs.selected, "bob");
    rename("bob (bob@a)", "Robert <3");
    EXPECT_EQ(rows(), "Ann (a@a/a@b), Anouk (, Robert <3, Carl (carl@a), Zoe (zoe@a)");
    EXPECT_EQ(rows({0}), "Robert <3 medium, Carl weak, Zoe strong");
    EXPECT_EQ(saved()->contact(3)->name, "Robert <3");
    EXPECT_EQ(changes, 1);
    driver.click(form.refreshButton);
    EXPECT_EQ(rows(), "Ann (a@a/a@b), Anouk (, Carl (carl@a), Robert <3 (bob@a), Zoe (zoe@a)");
    rename("Carl (carl@a)", "Karl (carl@a)");
    EXPECT_EQ(saved()->contact(4)->name, "Karl");
}

TEST_F(CommandsTest, deletesAContactByMenuAndByKey) {
    driver.expand(form.presTree, {0});
    driver.clickRow(form.presTree, {0, 1});
    driver.press(*form.window, Key::Delete);
    const char* question = "Do you want to delete this contact ?";
    expectQuestion(question, Answer::Cancel);
    driver.chooseAt(form.presTree, {3}, "Delete");
    EXPECT_EQ(core.dialogs.consequence, "Carl: 1 contact, 2 relations. Undo brings them back.");
    EXPECT_EQ(changes, 0);
    core.files.files["/data/pelk/pelk.db"] = "before";
    expectQuestion(question, Answer::Ok);
    driver.chooseAt(form.presTree, {3}, "Delete");
    EXPECT_EQ(rows(), "Ann (a@a/a@b), Anouk (, bob (bob@a), Zoe (zoe@a)");
    EXPECT_EQ(rows({0}), "bob medium, Zoe strong") << "gone wherever it was shown";
    EXPECT_EQ(driver.textOf(form.dLabel2), "Total contacts: 4");
    EXPECT_EQ(saved()->contactCount(), 4U);
    EXPECT_EQ(saved()->relationCount(), 2U);
    EXPECT_EQ(core.files.files["/data/pelk/pelk.db.bak"], "before");
    for (int left = 3; left >= 0; --left) {
        driver.clickRow(form.presTree, {0});
        expectQuestion(question, Answer::Ok);
        driver.press(*form.window, Key::Delete);
        EXPECT_EQ(driver.textOf(form.dLabel2), "Total contacts: " + std::to_string(left));
    }
    EXPECT_EQ(rows(), "");
    driver.press(*form.window, Key::Delete);
}

TEST_F(CommandsTest, deletesADomainOrTheOwnerOfAnAddress) {
    database->addContact("Far", "far@c.ba");
    database->addContact("Near", "xbob@a");
    groupByDomains();
    expectQuestion("Do you want to delete this domain?", Answer::Cancel);
    driver.chooseAt(form.presTree, {0}, "Delete");
    EXPECT_EQ(core.dialogs.consequence, "a: 6 contacts, 4 relations. Undo brings them back.");
    EXPECT_EQ(changes, 0);
    openDomain({0});
    EXPECT_EQ(rows({0}), "a (Ann), bob (bob), carl (Carl), xbob (Near), zoe (Zoe)");
    driver.clickRow(form.presTree, {0, 1});
    expectQuestion("Do you want to delete this contact?", Answer::Ok);
    driver.press(*form.window, Key::Delete);
    EXPECT_FALSE(saved()->contact(3));
    EXPECT_FALSE(saved()->contact(7)) << "xbob@a ends with bob@a";
    EXPECT_EQ(rows(), "a, b, ba");
    expectQuestion("Do you want to delete this domain?", Answer::Ok);
    driver.chooseAt(form.presTree, {0}, "Delete");
    EXPECT_EQ(rows(), "") << "c.ba ends with a, and Ann goes with both of her addresses";
    EXPECT_EQ(driver.textOf(form.dLabel2), "Total contacts: 1") << "Anouk has no address";
    EXPECT_EQ(saved()->relationCount(), 0U);
}

TEST_F(CommandsTest, deletesNoOtherContactForAnEmptyLabelOrAnOddAddress) {
    for (const char* address :
         {"dot@x.com.", "@a", "in@b..c", "other@c.c", "\"john doe\"@b", ".dot@d"})
        database->addContact("Odd", address);
    groupByDomains();
    EXPECT_EQ(rows(), "a, b, , c, d");
    core.dialogs.expectMessage("The domain is empty.");
    driver.chooseAt(form.presTree, {2}, "Delete");
    openDomain({3});
    core.dialogs.expectMessage("The domain .c begins with an empty label.");
    driver.chooseAt(form.presTree, {3, 0}, "Delete");
    EXPECT_EQ(changes, 0);

    const auto expectDeleted = [this](const TreePath& leaf, int id) {
        openDomain({leaf[0]});
        const std::size_t count = database->contactCount();
        expectQuestion("Do you want to delete this contact?", Answer::Ok);
        driver.chooseAt(form.presTree, leaf, "Delete");
        EXPECT_FALSE(database->contact(id));
        EXPECT_EQ(database->contactCount(), count - 1);
    };
    expectDeleted({1, 0}, 10);
    expectDeleted({0, 0}, 7);
    openDomain({2});
    expectQuestion("Do you want to delete this domain?", Answer::Ok);
    driver.chooseAt(form.presTree, {2, 0}, "Delete");
    EXPECT_FALSE(database->contact(6)) << "com. is a domain";
    EXPECT_EQ(database->contactCount(), 8U);
    expectDeleted({3, 0}, 11);
}

TEST_F(CommandsTest, keepsAndReportsAChangeThatCannotBeSaved) {
    core.files.folders.insert("/data/pelk");
    core.files.failAt = core.files.steps + 1;
    core.dialogs.expectInput("Rename", "Enter the new name of the contact", "Zoe (zoe@a)", "Zed");
    core.dialogs.expectMessage(
        "/data/pelk/pelk.db cannot be written. The change stands in memory only, and will be "
        "saved with the next change.");
    driver.chooseAt(form.presTree, {4}, "Rename");
    EXPECT_EQ(rows(), "Ann (a@a/a@b), Anouk (, bob (bob@a), Carl (carl@a), Zed");
}

TEST_F(CommandsTest, ignoresADeletedContact) {
    database->removeContacts({4});
    core.dialogs.expectInput("Rename", "Enter the new name of the contact", "Carl (carl@a)", "C");
    core.dialogs.expectMessage("This contact is no longer in the database.");
    driver.chooseAt(form.presTree, {3}, "Rename");
    EXPECT_EQ(rows(), "Ann (a@a/a@b), Anouk (, bob (bob@a), Zoe (zoe@a)");
    EXPECT_EQ(changes, 0);
}

}  // namespace
}  // namespace pelk
