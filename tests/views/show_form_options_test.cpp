// What the relations view says beside its nodes, and its options.

#include "tests/views/show_form_fixture.h"

namespace pelk {
namespace {

class OptionsTest : public ShowFormTest {
 protected:
    std::string details(const TreeNode& parent) {
        std::string all;
        for (const TreeNode* const node : parent.children())
            all += (all.empty() ? "" : " | ") + form.presTree.detail(*node);
        return all;
    }
    const TreeNode& root() { return form.presTree.model().root(); }
    std::string hitsInOrder(const std::string& query) {
        driver.type(form.search.box, query);
        std::string texts;
        do {
            texts += driver.selectedText(form.presTree).value_or("none") + ", ";
            driver.press(*form.window, Key::Enter);
        } while (!driver.textOf(form.search.status).starts_with("1 of "));
        return texts;
    }
    void choose(const std::string& item) {
        driver.chooseIn(form.options.button, item);
        driver.settle();
    }
};

TEST_F(OptionsTest, DetailsTellContactsApart) {
    EXPECT_EQ(details(root()),
              "3 relations, 310 e-mails | no relations | 1 relation, 100 e-mails | "
              "2 relations, 17 e-mails | 1 relation, 200 e-mails");
    EXPECT_EQ(details(*root().children()[0]), "") << "the placeholder";
    EXPECT_EQ(expanded(2), "Ann medium");
    EXPECT_EQ(details(*root().children()[2]), "100 e-mails, a@a/a@b");
    expanded(3);
    EXPECT_EQ(details(*root().children()[3]), "10 e-mails, a@a/a@b | 7 e-mails, carl@a");
}

TEST_F(OptionsTest, SortContactsAndTheirRelations) {
    choose("Sort by e-mails");
    EXPECT_EQ(rows(), "Ann (a@a/a@b), Zoe (zoe@a), bob (bob@a), Carl (carl@a), Anouk (");
    EXPECT_EQ(expanded(0), "Zoe strong, bob medium, Carl weak");
    database->addMailBetween(5, 4);
    choose("Sort by strength");
    EXPECT_EQ(rows(), "Ann (a@a/a@b), Zoe (zoe@a), bob (bob@a), Anouk (, Carl (carl@a)")
        << "equal strengths by name";
    EXPECT_EQ(rows({0}), "Zoe strong, bob medium, Carl weak");
    choose("Sort by name");
    EXPECT_EQ(rows(), "Ann (a@a/a@b), Anouk (, bob (bob@a), Carl (carl@a), Zoe (zoe@a)");
}

TEST_F(OptionsTest, HideWeakRelations) {
    choose("Show medium and strong");
    EXPECT_EQ(rows(), "Ann (a@a/a@b), bob (bob@a), Zoe (zoe@a)");
    EXPECT_EQ(expanded(0), "bob medium, Zoe strong");
    choose("Show strong");
    EXPECT_EQ(rows(), "Ann (a@a/a@b), Zoe (zoe@a)");
    EXPECT_EQ(rows({0}), "Zoe strong");
    EXPECT_EQ(foundBy("carl"), "");
    choose("Show all");
    EXPECT_EQ(driver.rows(form.presTree).size(), 5U);
}

TEST_F(OptionsTest, AreRemembered) {
    choose("Sort by e-mails");
    choose("Show strong");
    choose("Domains by registered name");
    ShowForm later(core.ui(), core.language());
    EXPECT_EQ(later.options.relations().order, RelationOrder::ByMails);
    EXPECT_EQ(later.options.relations().filter, RelationFilter::Strong);
    EXPECT_TRUE(later.options.byRegisteredName());
    choose("*Domains by registered name");
    EXPECT_FALSE(ShowForm(core.ui(), core.language()).options.byRegisteredName());
    core.settings.write("viewOrder", "9");
    ShowForm foreign(core.ui(), core.language());
    EXPECT_EQ(foreign.options.relations().order, RelationOrder::ByName);
}

TEST_F(OptionsTest, GroupDomainsByRegisteredName) {
    database = loadDocument(
        "<pelkDB totalMails='0' totalContacts='4' maxInd='50' minInd='5'><contacts>"
        "<contact id='1' name='Ann'><emails><email value='ann@mail.intel.com'/>"
        "<email value='a@intel.com'/></emails></contact>"
        "<contact id='2' name='Bob'><emails><email value='bob@bbc.co.uk'/></emails></contact>"
        "<contact id='3' name='Eve'><emails><email value='eve@sales.intel.com'/></emails></contact>"
        "<contact id='4' name='Ida'><emails><email value='ida@[10.0.0.1]'/></emails></contact>"
        "<contact id='5' name='Moe'><emails><email value='moe@myintel.com'/></emails></contact>"
        "</contacts><relations/></pelkDB>");
    open();
    driver.click(form.domainsRadio);
    EXPECT_EQ(rows(), "com, uk, 1]");
    EXPECT_EQ(details(root()), "3 contacts | 1 contact | 1 contact");
    EXPECT_EQ(driver.menuOf(form.options.button)[1], "(Sort by strength)");
    choose("Domains by registered name");
    EXPECT_EQ(rows(), "[10.0.0.1], bbc.co.uk, intel.com, myintel.com");
    EXPECT_EQ(details(root()), "1 contact | 1 contact | 2 contacts | 1 contact");
    EXPECT_EQ(expanded(2), "a (Ann), mail, sales");
    EXPECT_EQ(details(*root().children()[2]), "1 contact | 1 contact");
    std::string domain;
    form.findDomainLinks = [&](const std::string& asked) { domain = asked; };
    driver.chooseAt(form.presTree, {2, 1}, "Find all possible links");
    EXPECT_EQ(domain, "mail.intel.com");
    driver.type(form.search.box, "eve");
    EXPECT_EQ(driver.selectedText(form.presTree), "eve (Eve)");
    EXPECT_EQ(hitsInOrder("o"), "bob (Bob), a (Ann), ann (Ann), eve (Eve), moe (Moe), ");
    core.dialogs.expectMessage("Do you want to delete this domain?", Buttons::OkCancel, Answer::Ok);
    driver.chooseAt(form.presTree, {2}, "Delete");
    EXPECT_EQ(rows(), "[10.0.0.1], bbc.co.uk, myintel.com") << "intel.com is the end of another";
    driver.click(form.namesRadio);
    EXPECT_EQ(driver.menuOf(form.options.button)[1], "Sort by strength");
}

TEST_F(OptionsTest, HideListsAndRobots) {
    History history;
    history.record("carl@a").listBy = "List-Post";
    history.record("bob@a") = {1, 1, "List-Unsubscribe", ""};
    bool readable = true;
    HiddenContacts hidden([&]() -> const History& {
        if (!readable)
            throw Error("The history cannot be read.");
        return history;
    });
    form.hidden = &hidden;
    int told = 0;
    form.hiddenChanged = [&told] { ++told; };
    open();
    EXPECT_EQ(driver.rows(form.presTree).size(), 5U);
    EXPECT_EQ(driver.textOf(form.search.status), "");
    choose("*Show lists and robots");
    EXPECT_EQ(rows(), "Ann (a@a/a@b), Anouk (, Zoe (zoe@a)");
    EXPECT_EQ(expanded(0), "Zoe strong");
    EXPECT_EQ(driver.textOf(form.search.status), "2 hidden");
    driver.type(form.search.box, "carl");
    EXPECT_EQ(driver.textOf(form.search.status), "nothing found");
    driver.click(form.domainsRadio);
    EXPECT_EQ(driver.textOf(form.search.status), "2 hidden");
    EXPECT_EQ(expanded(0), "a (Ann), zoe (Zoe)");
    EXPECT_EQ(form.presTree.detail(*root().children()[0]), "4 contacts") << "they count";
    driver.type(form.search.box, "carl");
    EXPECT_EQ(driver.textOf(form.search.status), "nothing found");
    driver.type(form.search.box, "");
    EXPECT_FALSE(ShowForm(core.ui(), core.language()).options.showsLists());
    history.record("zoe@a").listBy = "List-Post";
    form.refresh();
    EXPECT_EQ(driver.textOf(form.search.status), "3 hidden");
    database->addContact("Ro", "no-reply@c");
    form.refresh();
    EXPECT_EQ(driver.textOf(form.search.status), "4 hidden");
    readable = false;
    form.refresh();
    EXPECT_EQ(driver.textOf(form.search.status), "1 hidden by name");
    EXPECT_EQ(rows(), "a, b");
    choose("Show lists and robots");
    EXPECT_EQ(rows(), "a, b, c");
    EXPECT_EQ(rows({0}), "a (Ann), bob (bob), carl (Carl), zoe (Zoe)");
    EXPECT_EQ(told, 2);
}

TEST_F(OptionsTest, ARelatedContactLeadsToItsOwnNode) {
    driver.expand(form.presTree, {0});
    driver.chooseAt(form.presTree, {0, 2}, "Go to this contact");
    EXPECT_EQ(driver.selectedText(form.presTree), "Zoe (zoe@a)");
    driver.doubleClickRow(form.presTree, {0, 0});
    EXPECT_EQ(driver.selectedText(form.presTree), "bob (bob@a)");
    driver.clickRow(form.presTree, {0, 1});
    driver.press(*form.window, Key::Enter);
    EXPECT_EQ(driver.selectedText(form.presTree), "Carl (carl@a)");
    driver.press(*form.window, Key::Enter);
    EXPECT_EQ(driver.selectedText(form.presTree), "Carl (carl@a)");
}

}  // namespace
}  // namespace pelk
