// Tests the forms together: a change made in one form shows in all open ones.

#include "addin/forms.h"

#include <gtest/gtest.h>

#include "addin/HelpForm.h"
#include "map/network_export.h"
#include "tests/support/core_platform.h"
#include "tests/support/memory_mail.h"
#include "tests/support/tree_text.h"

namespace pelk {
namespace {

using Rows = std::vector<std::string>;

/// Ann (1) exchanged 10 e-mails with Bob, 4 with Cy and 1 with Dee; Bob (2) exchanged 3 with Cy.
/// Eve (5) has no relations.
constexpr const char* kCommunity =
    "<pelkDB date='2026-11-20T00:00:00' totalMails='18' totalContacts='5' maxInd='50' minInd='10'>"
    "<contacts><contact id='1' name='Ann'><emails><email value='ann@b.a'/></emails></contact>"
    "<contact id='2' name='Bob'><emails><email value='bob@b.a'/></emails></contact>"
    "<contact id='3' name='Cy'><emails><email value='cy@c'/></emails></contact>"
    "<contact id='4' name='Dee'><emails><email value='dee@c'/></emails></contact>"
    "<contact id='5' name='Eve'><emails><email value='eve@e'/></emails></contact></contacts>"
    "<relations total='0'><relation part1='1' part2='2' weight='10'/>"
    "<relation part1='1' part2='3' weight='4'/><relation part1='1' part2='4' weight='1'/>"
    "<relation part1='2' part2='3' weight='3'/></relations></pelkDB>";

class FormsTest : public ::testing::Test {
 protected:
    CorePlatform core;
    Driver& driver = core.driver();
    std::unique_ptr<Database> database = loadDocument(kCommunity);
    Forms forms{core.ui(), core.platform(), core.storage()};

    void SetUp() override {
        core.files.folders.insert("/data/pelk");
        forms.openView(*database);
        driver.settle();
    }
    TreeView& tree() { return forms.view->presTree; }
    void choose(const TreePath& row, const std::string& caption) {
        forms.view->show();
        driver.settle();
        driver.chooseAt(tree(), row, caption);
        driver.settle();
    }
    void groupByDomains() {
        driver.click(forms.view->domainsRadio);
        driver.settle();
    }
    void openContact(const TreePath& domain, int leaf) {
        groupByDomains();
        TreePath row;
        for (const int step : domain) {
            row.push_back(step);
            driver.expand(tree(), row);
        }
        row.push_back(leaf);
        choose(row, "View contacts");
        driver.click(forms.view->namesRadio);
    }
    void collect(std::initializer_list<int> rows) {
        for (const int row : rows)
            choose({row}, "Merge contacts");
    }
    void mergeAs(const std::string& name) {
        driver.type(forms.merge->MergeName, name);
        driver.click(forms.merge->mergeButton);
    }
    void openOthers() {
        forms.openOthers(*database);
        driver.settle();
    }
    void expectAgreement(const std::string& question) {
        core.dialogs.expectMessage(question, Buttons::OkCancel, Answer::Ok);
    }
    void expectFile(const std::string& title, const std::string& path) {
        core.dialogs.expectFile(title, "Pelk Data Base files (*.db)|*.db|All files (*.*)|*.*",
                                path);
    }
    std::unique_ptr<Database> saved() { return core.storage().loadDatabase().database; }
};

TEST_F(FormsTest, mergesTheContactsThatWereCollected) {
    choose({1}, "Merge contacts");
    mergeForm& form = *forms.merge;
    EXPECT_EQ(driver.textOf(form.Label1),
              "Select the contacts that belong to to the same person from the \"Relations Tree\"");
    for (Label* label : {&form.Label1, &form.Label2, &form.Mergelbl1})
        EXPECT_TRUE(driver.showsWholeText(*label)) << driver.textOf(*label);
    EXPECT_FALSE(driver.isEnabled(form.mergeButton));
    core.dialogs.expectMessage("At least two contacts must be added to the list!");
    mergeAs("Robert");
    collect({2, 4, 0, 1});
    EXPECT_EQ(driver.rowsOf(form.listView),
              (Rows{"Bob (bob@b.a)", "Cy (cy@c)", "Eve (eve@e)", "Ann (ann@b.a)"}));
    driver.selectRows(form.listView, {0, 3});
    driver.click(form.Delcmd);
    EXPECT_EQ(driver.rowsOf(form.listView), (Rows{"Cy (cy@c)", "Eve (eve@e)"}));
    collect({0, 1, 3});
    driver.selectRows(form.listView, {2, 3, 4});
    driver.click(form.Delcmd);
    EXPECT_EQ(driver.rowsOf(form.listView), (Rows{"Cy (cy@c)", "Eve (eve@e)"}));
    collect({1});
    driver.type(form.MergeName, "");
    EXPECT_FALSE(driver.isEnabled(form.mergeButton));
    core.storage().saveDatabase(*database);
    const std::string before = core.files.files["/data/pelk/pelk.db"];
    mergeAs("Cyril");

    EXPECT_FALSE(driver.isVisible(*form.window));
    EXPECT_EQ(shownRows(driver, tree()), "Ann (ann@b.a), Cyril (cy@c/eve@e/bob@b.a), Dee (dee@c)");
    EXPECT_EQ(driver.textOf(forms.view->dLabel2), "Total contacts: 3");
    EXPECT_EQ(saved()->relationOfPair(1, 3)->weight, 14);
    EXPECT_EQ(saved()->relationCount(), 2U);
    EXPECT_EQ(core.files.files["/data/pelk/pelk.db.bak"], before);

    choose({2}, "Merge contacts");
    EXPECT_EQ(driver.rowsOf(form.listView), (Rows{"Dee (dee@c)"})) << "it opens anew";
    EXPECT_EQ(driver.textOf(form.MergeName), "");
}

TEST_F(FormsTest, mergesTheContactsThatAreSelectedTogether) {
    database->renameContact(3, "Bob");
    forms.view->refresh();
    driver.clickRow(tree(), {2});
    driver.clickRowWith(Hold::Control, tree(), {1});
    choose({2}, "Merge contacts");
    mergeForm& form = *forms.merge;
    EXPECT_EQ(driver.rowsOf(form.listView), (Rows{"Bob (bob@b.a)", "Bob (cy@c)"}));
    EXPECT_EQ(driver.textOf(form.MergeName), "Bob") << "all agree";
    EXPECT_TRUE(driver.isEnabled(form.mergeButton));
    collect({0});
    EXPECT_EQ(driver.textOf(form.MergeName), "") << "they no longer do";
    driver.type(form.MergeName, "Robert");
    driver.selectRows(form.listView, {2});
    driver.click(form.Delcmd);
    EXPECT_EQ(driver.textOf(form.MergeName), "Robert") << "what the user typed";
    driver.click(form.cancelButton);
    EXPECT_FALSE(driver.isVisible(*form.window));
    EXPECT_EQ(database->contactCount(), 5U);
    collect({1, 2});
    driver.click(form.mergeButton);
    EXPECT_EQ(shownRows(driver, tree()),
              "Ann (ann@b.a), Bob (bob@b.a/cy@c), Dee (dee@c), Eve (eve@e)");
}

TEST_F(FormsTest, findsTheContactsToMergeAndThoseToLink) {
    collect({0});
    mergeForm& merge = *forms.merge;
    driver.type(merge.search.box, "@b.a");
    EXPECT_EQ(driver.textOf(merge.foundLabel), "Ann (ann@b.a)");
    driver.press(*merge.window, Key::Down);
    EXPECT_EQ(driver.textOf(merge.search.status), "2 of 2");
    driver.press(*merge.window, Key::Enter);
    driver.type(merge.search.box, "EVE");
    driver.click(merge.addButton);
    EXPECT_EQ(driver.rowsOf(merge.listView),
              (Rows{"Ann (ann@b.a)", "Bob (bob@b.a)", "Eve (eve@e)"}));
    driver.giveFocus(merge.search.box);
    driver.press(*merge.window, Key::Escape);
    EXPECT_EQ(driver.textOf(merge.foundLabel), "");
    EXPECT_FALSE(driver.isEnabled(merge.addButton));

    choose({3}, "Find the best link");
    driver.type(forms.find->search.box, "cy@");
    EXPECT_EQ(driver.selectedText(forms.find->listTree), "Cy");
    EXPECT_EQ(forms.find->listTree.detail(*forms.find->listTree.selected()), "cy@c");
    EXPECT_TRUE(driver.isEnabled(forms.find->okButton));
}

TEST_F(FormsTest, leavesOutRobotsEverywhere) {
    database->addContact("Robby", "no-reply@z");
    forms.view->refresh();
    collect({0});
    choose({0}, "Find the best link");
    driver.type(forms.find->search.box, "robby");
    driver.chooseIn(forms.view->options.button, "*Show lists and robots");
    EXPECT_EQ(driver.textOf(forms.find->search.status), "nothing found");
    EXPECT_EQ(shownRows(driver, forms.find->listTree), "Ann, Bob, Cy, Dee, Eve");
    driver.type(forms.merge->search.box, "robby");
    EXPECT_EQ(driver.textOf(forms.merge->foundLabel), "");
    driver.click(forms.view->domainsRadio);
    choose({0}, "Find all possible links");
    EXPECT_EQ(shownRows(driver, forms.findDomain->presTree), "a, c, e");
    EXPECT_EQ(driver.textOf(forms.findDomain->searchField.status), "1 hidden");
    driver.chooseIn(forms.view->options.button, "Show lists and robots");
    EXPECT_EQ(shownRows(driver, forms.findDomain->presTree), "a, c, e, z");
}

TEST_F(FormsTest, showsHowStrongARelationIs) {
    driver.expand(tree(), {0});
    choose({0, 1}, "More details");
    DetailsForm& form = *forms.details;
    EXPECT_EQ(driver.textOf(form.part1Label), "Ann");
    EXPECT_EQ(driver.textOf(form.part2Label), "Cy");
    EXPECT_EQ(driver.textOf(form.moreLabel),
              "4 emails have been exchanged between these contacts, while in the most strong "
              "relation 10 emails have been exchanged.");
    EXPECT_TRUE(driver.showsWholeText(form.moreLabel));
    EXPECT_EQ(driver.progressOf(form.weightBar).value, 4);
    EXPECT_EQ(driver.progressOf(form.weightBar).maximum, 10);
    choose({0, 2}, "More details");
    EXPECT_EQ(driver.textOf(form.part2Label), "Dee");
    EXPECT_EQ(driver.textOf(form.moreLabel).substr(0, 23), "1 email has been exchan");
    driver.click(form.okButton);
    EXPECT_FALSE(driver.isVisible(*form.window));

    database->removeContacts({2});
    choose({0, 0}, "More details");
    EXPECT_EQ(driver.textOf(form.part1Label), "Ann");
    EXPECT_EQ(driver.textOf(form.part2Label), "a deleted contact") << "not the one before";
    EXPECT_EQ(driver.textOf(form.moreLabel), "This relation is no longer in the database.");
    EXPECT_EQ(driver.progressOf(form.weightBar).value, driver.progressOf(form.weightBar).minimum);
}

TEST_F(FormsTest, showsWhenPeopleWroteAndWhoWasLostSightOf) {
    driver.expand(tree(), {0});
    choose({0, 1}, "Over time");
    EXPECT_EQ(driver.textOf(forms.overTime->titleLabel), "Ann and Cy");
    choose({0, 0}, "More details");
    driver.click(forms.details->overTimeButton);
    EXPECT_EQ(driver.textOf(forms.overTime->titleLabel), "Ann and Bob");
    choose({2}, "Lost sight of");
    EXPECT_EQ(driver.textOf(forms.lostSight->titleLabel), "People Cy has lost sight of");
    expectAgreement("Do you want to delete this contact ?");
    choose({1}, "Delete");
    EXPECT_EQ(driver.textOf(forms.overTime->titleLabel), "Ann and a deleted contact");
    choose({2}, "Over time");
    EXPECT_EQ(driver.textOf(forms.overTime->titleLabel), "Dee and all others");
    driver.chooseIn(forms.view->options.button, "Lost sight of");
    EXPECT_EQ(driver.textOf(forms.lostSight->titleLabel), "People you have lost sight of");
    groupByDomains();
    EXPECT_EQ(driver.menuAt(tree(), {0}).back(), "Undo deletion of Bob");
    forms.lostSight->showContact(3);
    EXPECT_EQ(driver.selectedText(tree()), "Cy (cy@c)");
    forms.lostSight->showContact(2);
    EXPECT_EQ(driver.selectedText(tree()), std::nullopt);
    EXPECT_EQ(driver.textOf(forms.view->search.status), "not shown");
}

TEST_F(FormsTest, sharesTheSelectionOfTheViewAndThePicture) {
    driver.chooseIn(forms.view->options.button, "Show the picture");
    EXPECT_EQ(driver.textOf(forms.community->countLabel),
              "4 people in 1 group. Only the links that matter most are drawn.");
    forms.view->show();
    driver.clickRow(tree(), {1});
    EXPECT_EQ(driver.textOf(forms.community->selectedLabel), "Bob: 2 relations, 13 e-mails");
    groupByDomains();
    driver.type(forms.view->search.box, "dee");
    EXPECT_EQ(driver.textOf(forms.community->selectedLabel), "Dee: 1 relation, 1 e-mail");
    forms.community->contactSelected(3);
    EXPECT_EQ(driver.selectedText(tree()), "Cy (cy@c)");
    forms.view->window->hide();
    forms.community->contactSelected(1);
    EXPECT_FALSE(driver.isVisible(*forms.view->window));
    forms.community->select(1);
    driver.click(forms.community->goButton);
    EXPECT_EQ(driver.selectedText(tree()), "Ann (ann@b.a)");
    forms.view->renameContact(1, "Al");
    forms.view->databaseChanged();
    EXPECT_EQ(driver.textOf(forms.community->selectedLabel), "Al: 3 relations, 15 e-mails");
    choose({3}, "Find the best link");
    driver.clickRow(forms.find->listTree, {2});
    driver.click(forms.find->okButton);
    driver.click(forms.links->pictureButton);
    EXPECT_EQ(driver.textOf(forms.community->selectedLabel), "Marked: the chain from Dee to Cy");
    EXPECT_TRUE(driver.showsWholeText(forms.links->pictureButton));
}

TEST_F(FormsTest, showsThePeopleAroundAContactAndFollowsChanges) {
    choose({0}, "Show picture");
    CircleForm& form = *forms.circle;
    EXPECT_EQ(driver.textOf(form.titleLabel), "Ann and the 3 people nearest by e-mail");
    forms.view->show();
    driver.expand(tree(), {0});
    choose({0, 0}, "Show picture");
    EXPECT_EQ(driver.textOf(form.titleLabel), "Bob and the 2 people nearest by e-mail");
    EXPECT_TRUE(driver.isEnabled(form.backButton));
    driver.clickRow(form.peopleTree, {1, 0});
    driver.click(form.goButton);
    EXPECT_EQ(driver.selectedText(tree()), "Ann (ann@b.a)");
    core.dialogs.expectInput("Rename", "Enter the new name of the contact", "Ann (ann@b.a)",
                             "Anna");
    choose({0}, "Rename");
    EXPECT_EQ(driver.textOf(form.personLabel), "Anna, ann@b.a, 10 e-mails with Bob");
}

TEST_F(FormsTest, showsAContactAlone) {
    openContact({0, 0}, 0);
    ShowFormSingle& form = *forms.contact;
    EXPECT_EQ(shownRows(driver, form.presTree), "Ann (ann@b.a)");
    EXPECT_EQ(shownRows(driver, form.presTree, {0}), "Bob strong, Cy medium, Dee weak");
    EXPECT_TRUE(driver.rows(form.presTree)[0].expanded);
    EXPECT_EQ(driver.menuAt(form.presTree, {0}), (Rows{"Copy to clipboard"}));
    EXPECT_EQ(driver.menuAt(form.presTree, {0, 1}), (Rows{"More details", "Copy to clipboard"}));
    driver.chooseAt(form.presTree, {0}, "Copy to clipboard");
    EXPECT_EQ(core.display.clipboard, "Ann (ann@b.a)");
    driver.chooseAt(form.presTree, {0, 1}, "More details");
    driver.settle();
    EXPECT_EQ(driver.textOf(forms.details->part1Label), "Ann");
    EXPECT_EQ(driver.textOf(forms.details->part2Label), "Cy");
}

TEST_F(FormsTest, noFormShowsOrEditsADeletedContact) {
    openContact({1}, 0);
    collect({2, 0});
    choose({0}, "Find the best link");
    driver.expand(tree(), {0});
    choose({0, 1}, "More details");
    EXPECT_EQ(shownRows(driver, forms.contact->presTree, {0}), "Ann medium, Bob medium");
    const TreeNode& contact = *forms.contact->presTree.model().root().children().front();
    EXPECT_EQ(forms.contact->presTree.detail(contact), "2 relations, 7 e-mails");

    expectAgreement("Do you want to delete this contact ?");
    choose({2}, "Delete");
    EXPECT_EQ(shownRows(driver, tree(), {0}), "Bob strong, Dee weak");
    EXPECT_EQ(driver.textOf(forms.details->moreLabel),
              "This relation is no longer in the database.");
    EXPECT_EQ(shownRows(driver, forms.contact->presTree),
              "No contact has the address cy@c any more.");
    EXPECT_EQ(driver.menuAt(forms.contact->presTree, {0}), (Rows{"Copy to clipboard"}));
    EXPECT_EQ(driver.rowsOf(forms.merge->listView), (Rows{"Ann (ann@b.a)"}));
    EXPECT_EQ(shownRows(driver, forms.find->listTree), "Ann, Bob, Dee, Eve");
}

TEST_F(FormsTest, undoesAndRedoesInAllOpenForms) {
    const std::string before = database->xml();
    openContact({1}, 0);
    expectAgreement("Do you want to delete this contact ?");
    choose({2}, "Delete");
    const std::string gone = "No contact has the address cy@c any more.";
    EXPECT_EQ(shownRows(driver, forms.contact->presTree), gone);
    EXPECT_EQ(driver.textOf(forms.view->lastStepLabel), "Done: deletion of Cy. Ctrl+Z undoes it.");
    EXPECT_TRUE(driver.showsWholeText(forms.view->lastStepLabel));
    driver.press(*forms.contact->window, "Ctrl+Z");
    EXPECT_EQ(shownRows(driver, forms.contact->presTree), "Cy (cy@c)");
    EXPECT_EQ(driver.rows(tree()).size(), 5U);
    EXPECT_EQ(driver.textOf(forms.view->lastStepLabel),
              "Undone: deletion of Cy. Ctrl+Y does it again.");
    EXPECT_EQ(saved()->xml(), before);
    driver.chooseAt(tree(), {1}, "Redo deletion of Cy");
    EXPECT_EQ(shownRows(driver, forms.contact->presTree), gone);
    EXPECT_EQ(driver.menuAt(tree(), {1}).back(), "Undo deletion of Cy");
    EXPECT_EQ(driver.menuOf(forms.view->options.button).back(), "Undo deletion of Cy");
    driver.press(*forms.view->window, "Ctrl+Z");
    core.files.failAt = core.files.steps + 1;
    core.dialogs.expectMessage(
        "/data/pelk/pelk.db cannot be written. The change stands in memory only, and will be "
        "saved with the next change.");
    driver.press(*forms.view->window, "Ctrl+Y");
    EXPECT_EQ(shownRows(driver, forms.contact->presTree), gone);
    EXPECT_EQ(driver.textOf(forms.view->dLabel2), "Total contacts: 4");
}

TEST_F(FormsTest, saysWhatTheOtherOptionsHaveDoneAndRestoresTheLastCopy) {
    openOthers();
    OthersForm& form = *forms.others;
    core.dialogs.expectMessage(
        "There is no copy yet. Pelk keeps one before it deletes, merges or imports contacts for "
        "the first time after its start.");
    driver.click(form.restoreButton);
    expectFile("Exporting the database", "/out.db");
    driver.click(form.exportButton);
    EXPECT_EQ(driver.textOf(form.doneLabel), "Exported 5 contacts, 4 relations to\n/out.db");
    expectFile("Importing a database", "/out.db");
    driver.click(form.importButton);
    EXPECT_EQ(driver.textOf(form.doneLabel),
              "Imported 0 contacts, 0 relations that were new, from\n/out.db");
    core.storage().saveDatabase(*database);
    const std::string before = database->xml();
    core.files.files["/data/pelk/pelk.db.bak"] = core.files.files["/data/pelk/pelk.db"];
    expectAgreement("Do you really want to delete the contacts database?");
    driver.click(form.delButton);
    EXPECT_EQ(core.dialogs.consequence,
              "The database: 5 contacts, 4 relations. Undo brings them back.");
    EXPECT_EQ(driver.textOf(form.doneLabel),
              "Deleted 5 contacts, 4 relations. The last copy is\n/data/pelk/pelk.db.bak");
    EXPECT_TRUE(driver.showsWholeText(form.doneLabel));
    expectAgreement("Do you want to restore the last copy of the database?");
    driver.click(form.restoreButton);
    EXPECT_EQ(core.dialogs.consequence,
              "It holds 5 contacts, 4 relations, e-mails up to 2026-11-20 00:00:00. Now there are "
              "0 contacts, 0 relations, never scanned. Undo brings them back.");
    EXPECT_EQ(saved()->xml(), before);
    EXPECT_EQ(driver.rows(tree()).size(), 5U);
    EXPECT_TRUE(driver.showsWholeText(form.doneLabel));
    driver.press(*form.window, "Ctrl+Z");
    EXPECT_EQ(driver.textOf(form.doneLabel),
              "Undone: restore of the last copy. Ctrl+Y does it again.");
    EXPECT_EQ(database->contactCount(), 0U);
}

TEST_F(FormsTest, exportsTheNetworkInTheFormatOfTheEnding) {
    openOthers();
    OthersForm& form = *forms.others;
    const auto exportTo = [&](const std::string& path, const std::string& box = "",
                              Buttons buttons = Buttons::Ok) {
        core.dialogs.expectFile("Exporting the network", kNetworkFileFilter, path);
        if (!box.empty())
            core.dialogs.expectMessage(box, buttons, Answer::Cancel);
        driver.click(form.networkButton);
        return driver.textOf(form.doneLabel);
    };
    EXPECT_EQ(exportTo("/out.db",
                       "The name must end in .graphml, .gexf, .csv, .dot, .gv, .json or .vcf."),
              "");
    EXPECT_EQ(exportTo("/out.GEXF"), "Exported 5 contacts, 4 relations to\n/out.GEXF");
    EXPECT_EQ(core.files.files.at("/out.GEXF").substr(0, 5), "<?xml");
    const std::string tables = exportTo("/out.csv");
    EXPECT_EQ(tables, "Exported 5 contacts, 4 relations to\n/out-nodes.csv\n/out-edges.csv");
    EXPECT_TRUE(driver.showsWholeText(form.doneLabel));
    // The user has named neither table, so the box for files has not asked.
    core.files.files["/out-nodes.csv"] = "mine";
    exportTo("/out.csv", "Do you want to replace these files?", Buttons::OkCancel);
    EXPECT_EQ(core.dialogs.consequence, "/out-nodes.csv\n/out-edges.csv");
    EXPECT_EQ(core.files.files.at("/out-nodes.csv"), "mine");
}

TEST_F(FormsTest, showsInOpenFormsWhatAMergeHasChanged) {
    openContact({1}, 1);
    driver.expand(tree(), {0});
    choose({0, 2}, "More details");
    collect({4});
    forms.merge->addContact(4, "Dee");
    forms.merge->addContact(2, "Bob");
    mergeAs("All");
    EXPECT_EQ(shownRows(driver, forms.contact->presTree), "All (eve@e/dee@c/bob@b.a)");
    EXPECT_EQ(shownRows(driver, forms.contact->presTree, {0}), "Ann strong, Cy medium");
    EXPECT_EQ(driver.textOf(forms.details->moreLabel),
              "This relation is no longer in the database.");
}

TEST_F(FormsTest, suggestsDuplicatesForAMerge) {
    database->renameContact(1, "Zoë Smith");
    database->renameContact(3, "Smith, Zoe");
    database->renameContact(4, "Eve Hill");
    database->renameContact(5, "Hill Eve");
    openOthers();
    driver.click(forms.others->duplicatesButton);
    driver.settle();
    DuplicatesForm& form = *forms.duplicates;
    EXPECT_EQ(driver.textOf(form.countLabel), "2 pairs of contacts may be one person");
    EXPECT_EQ(shownRows(driver, form.pairsTree), "Zoë Smith - Smith, Zoe, Eve Hill - Hill Eve");
    EXPECT_EQ(shownRows(driver, form.pairsTree, {1}), "Eve Hill (dee@c), Hill Eve (eve@e)");
    EXPECT_EQ(form.pairsTree.detail(*form.pairsTree.model().root().children()[1]),
              "same name in another order");
    for (Button* const button : {&form.mergeButton, &form.notSameButton, &form.showAgainButton})
        EXPECT_FALSE(driver.isEnabled(*button));

    driver.clickRow(form.pairsTree, {0});
    driver.click(form.notSameButton);
    EXPECT_EQ(driver.textOf(form.countLabel), "1 pair of contacts may be one person (1 hidden)");
    EXPECT_EQ(driver.selectedText(form.pairsTree), "Eve Hill - Hill Eve");
    const std::string kept = core.settings.read("notDuplicates").value_or("");
    EXPECT_EQ(kept.find("ann"), std::string::npos);
    EXPECT_TRUE(
        RejectedDuplicates(core.settings).contains(*database->contact(3), *database->contact(1)));
    EXPECT_FALSE(
        RejectedDuplicates(core.settings).contains(*database->contact(4), *database->contact(5)));

    driver.clickRow(form.pairsTree, {0, 1});
    driver.click(form.mergeButton);
    EXPECT_EQ(driver.rowsOf(forms.merge->listView), (Rows{"Eve Hill (dee@c)", "Hill Eve (eve@e)"}));
    mergeAs("Eve Hill");
    EXPECT_EQ(driver.textOf(form.countLabel), "No two contacts look like one person (1 hidden)");
    EXPECT_FALSE(driver.isEnabled(form.mergeButton));
    driver.click(form.showAgainButton);
    EXPECT_EQ(shownRows(driver, form.pairsTree), "Zoë Smith - Smith, Zoe");
    EXPECT_FALSE(driver.isEnabled(form.showAgainButton));

    forms.undo(*database);
    driver.clickRow(form.pairsTree, {1});
    forms.redo(*database);
    EXPECT_EQ(driver.selectedText(form.pairsTree), "Zoë Smith - Smith, Zoe");
    EXPECT_TRUE(driver.isEnabled(form.mergeButton));
}

TEST_F(FormsTest, savesWhatTheViewRenamesAndDeletes) {
    core.storage().saveDatabase(*database);
    core.dialogs.expectInput("Rename", "Enter the new name of the contact", "Eve (eve@e)", "Eva");
    choose({4}, "Rename");
    EXPECT_EQ(saved()->nameOf(5), "Eva");
    const std::string renamed = core.files.files["/data/pelk/pelk.db"];
    expectAgreement("Do you want to delete this contact ?");
    choose({4}, "Delete");
    EXPECT_EQ(saved()->contactCount(), 4U);
    EXPECT_EQ(core.files.files["/data/pelk/pelk.db.bak"], renamed);
}

TEST_F(FormsTest, setsThresholdsThatDoNotCross) {
    openOthers();
    const auto set = [this](int strong, int weak) {
        driver.later([this, strong, weak] {
            configForm& form = *forms.configuration;
            EXPECT_EQ(driver.valueOf(form.maxSlider), database->thresholds().strong);
            EXPECT_EQ(driver.valueOf(form.minSlider), database->thresholds().weak);
            EXPECT_EQ(driver.textOf(form.maxValueLabel),
                      std::to_string(driver.valueOf(form.maxSlider)));
            driver.move(form.maxSlider, strong);
            driver.move(form.minSlider, weak);
            EXPECT_EQ(driver.textOf(form.maxValueLabel), std::to_string(strong));
            driver.click(form.okButton);
            if (driver.isVisible(*form.window))
                driver.click(form.cancelButton);
        });
        driver.click(forms.others->configButton);
    };
    set(60, 20);
    EXPECT_EQ(saved()->thresholds().strong, 60);
    EXPECT_EQ(saved()->thresholds().weak, 20);
    set(30, 30);
    EXPECT_EQ(saved()->thresholds().strong, 30);
    core.dialogs.expectMessage(
        "Erroneous Action: A strong relation must always have more exchanged e-mails than that of "
        "a weak relation. Please apply a different configuration.");
    set(29, 30);
    EXPECT_EQ(database->thresholds().strong, 30);
    set(31, 30);
    driver.later([this] {
        configForm& form = *forms.configuration;
        driver.type(form.maxBox, "70");
        EXPECT_EQ(driver.valueOf(form.maxSlider), 70);
        EXPECT_EQ(driver.textOf(form.maxValueLabel), "70");
        driver.type(form.maxBox, "170");
        core.dialogs.expectMessage("A threshold is a whole number from 0 to 100.");
        driver.press(*form.window, Key::Enter);
        driver.move(form.maxSlider, 69);
        EXPECT_EQ(driver.textOf(form.maxBox), "69");
        driver.press(*form.window, Key::Enter);
    });
    driver.click(forms.others->configButton);
    EXPECT_EQ(saved()->thresholds().strong, 69);
    for (Label* label : {&forms.configuration->Label1, &forms.configuration->Label2,
                         &forms.configuration->Label3, &forms.configuration->Label4})
        EXPECT_TRUE(driver.showsWholeText(*label)) << driver.textOf(*label);
}

TEST_F(FormsTest, exportsImportsAndDeletesTheDatabase) {
    openOthers();
    OthersForm& form = *forms.others;
    for (const char* path : {"", "/copy.db"}) {
        expectFile("Exporting the database", path);
        driver.click(form.exportButton);
    }
    const char* question = "Do you really want to delete the contacts database?";
    core.dialogs.expectMessage(question, Buttons::OkCancel, Answer::Cancel);
    driver.click(form.delButton);
    EXPECT_EQ(shownRows(driver, tree(), {}).substr(0, 3), "Ann");
    expectAgreement(question);
    driver.click(form.delButton);
    EXPECT_EQ(shownRows(driver, tree()), "");
    EXPECT_EQ(driver.textOf(forms.view->dLabel2), "Total contacts: 0");

    core.display.onPendingEvents = [&] { EXPECT_FALSE(driver.isEnabled(form.importButton)); };
    for (const char* path : {"", "/nowhere.db", "/copy.db"}) {
        expectFile("Importing a database", path);
        if (path == std::string("/nowhere.db"))
            core.dialogs.expectMessage("Error while loading file /nowhere.db");
        driver.click(form.importButton);
    }
    EXPECT_EQ(core.display.busyPointers.back(), false);
    EXPECT_EQ(shownRows(driver, tree()),
              "Ann (ann@b.a), Bob (bob@b.a), Cy (cy@c), Dee (dee@c), Eve (eve@e)");
    EXPECT_EQ(saved()->relationCount(), 4U);

    core.files.failAt = core.files.steps + 1;
    expectFile("Importing a database", "/copy.db");
    core.dialogs.expectMessage("/data/pelk/pelk.db cannot be written.");
    driver.click(form.importButton);
    EXPECT_TRUE(driver.isEnabled(form.importButton));
    EXPECT_EQ(database->relationOfPair(1, 2)->weight, 10);
    driver.click(form.closeButton);
    EXPECT_FALSE(driver.isVisible(*form.window));
}

TEST_F(FormsTest, showsAnImportWhosePlainCopyIsMissingAndRefusesAnUnsoundFile) {
    core.files.folders.insert("/addin");
    Database other = std::move(*loadDocument(kCommunity));
    other.addContact("Zoe", "zoe@z");
    core.storage().exportDatabase(other, "/sound.db");
    other.addRelationWeight(2, 6, -4);
    core.storage().exportDatabase(other, "/unsound.db");
    openOthers();
    const auto import = [&](const char* path, const std::string& message) {
        expectFile("Importing a database", path);
        core.dialogs.expectMessage(message);
        driver.click(forms.others->importButton);
    };
    import(
        "/unsound.db",
        "Error while loading file /unsound.db\nIt is not a sound contact database: the attribute "
        "weight of an element relation is \"-4\", which is not a whole number.");
    // Saving the database takes seven steps. There is no earlier file to back up.
    core.files.failAt = core.files.steps + 8;
    import("/sound.db",
           "The file was imported and the database saved; only the plain copy of it is missing. "
           "/addin/pelkdb.xml cannot be written.");
    EXPECT_EQ(saved()->contactCount(), 6U);
}

TEST_F(FormsTest, handlesAnAddressWithAnApostrophe) {
    database->addContact("Pat", "o'hara@z");
    database->addMailBetween(1, 6);
    groupByDomains();
    openContact({3}, 0);
    EXPECT_EQ(shownRows(driver, forms.contact->presTree), "Pat (o'hara@z)");
    EXPECT_EQ(shownRows(driver, forms.contact->presTree, {0}), "Ann weak");
    choose({5}, "Find the best link");
    collect({0, 5});
    mergeAs("Both");
    EXPECT_EQ(database->contact(1)->addresses.back(), "o'hara@z");
    EXPECT_EQ(shownRows(driver, forms.contact->presTree), "Both (ann@b.a/o'hara@z)");
}

TEST_F(FormsTest, findsTheBestLinkBetweenContacts) {
    choose({3}, "Find the best link");
    findForm& form = *forms.find;
    EXPECT_FALSE(driver.isEnabled(form.okButton));
    EXPECT_TRUE(driver.showsWholeText(form.Label1));
    const auto find = [&](int row) {
        form.show();
        driver.settle();
        driver.clickRow(form.listTree, {row});
        driver.click(form.okButton);
        driver.settle();
    };
    core.dialogs.expectMessage("You cannot select this contact again!");
    find(3);
    core.dialogs.expectMessage("Cannot find a path between those nodes!");
    find(4);
    EXPECT_EQ(forms.links, nullptr);
    find(2);
    TreeView& result = forms.links->presTree;
    EXPECT_EQ(shownRows(driver, result), "Dee (dee@c)");
    EXPECT_EQ(shownRows(driver, result, {0}), "Ann (ann@b.a) weak");
    EXPECT_EQ(shownRows(driver, result, {0, 0}), "Cy (cy@c) medium");
    EXPECT_TRUE(driver.rows(result, {0})[0].expanded);
    driver.click(forms.links->okButton);
    EXPECT_FALSE(driver.isVisible(*forms.links->window));

    database->removeContacts({2});
    core.dialogs.expectMessage("Cannot find a path between those nodes!");
    find(1);
    find(2);
    EXPECT_EQ(shownRows(driver, result, {0, 0}), "Cy (cy@c) medium")
        << "the strongest relation is gone, but once seen it stays the measure";
}

TEST_F(FormsTest, showsTheNextBestLinksAndAvoidsContacts) {
    choose({3}, "Find the best link");
    driver.doubleClickRow(forms.find->listTree, {2});
    driver.settle();
    ShowFindFormSimple& form = *forms.links;
    const auto enabled = [&] {
        std::string buttons;
        for (Button* const button :
             {&form.previousButton, &form.nextButton, &form.avoidButton, &form.allowButton})
            buttons += driver.isEnabled(*button) ? '1' : '0';
        return driver.textOf(form.placeLabel) + " " + buttons;
    };
    const auto chain = [&] {
        std::string names;
        for (TreePath at; !driver.rows(form.presTree, at).empty(); at.push_back(0))
            names += driver.rows(form.presTree, at)[0].text.substr(0, 3);
        return names;
    };
    EXPECT_EQ(enabled(), "1 of 2, cost 17 0100");
    driver.click(form.nextButton);
    EXPECT_EQ(enabled(), "2 of 2, cost 19 1000");
    EXPECT_EQ(chain(), "DeeAnnBobCy ");
    driver.clickRow(form.presTree, {0, 0, 0, 0});
    EXPECT_EQ(enabled(), "2 of 2, cost 19 1000") << "an end";
    driver.clickRow(form.presTree, {0, 0, 0});
    driver.click(form.avoidButton);
    EXPECT_EQ(enabled(), "1 of 1, cost 17, not through Bob 0001");
    driver.clickRow(form.presTree, {0, 0});
    driver.click(form.avoidButton);
    EXPECT_EQ(enabled(), "Every chain goes through Ann. 0011");
    driver.click(form.allowButton);
    EXPECT_EQ(enabled(), "1 of 2, cost 17 0100");
    EXPECT_EQ(chain(), "DeeAnnCy ");
    driver.press(*form.window, "Alt+N");
    driver.press(*form.window, "Alt+P");
    driver.press(*form.window, "Alt+N");
    EXPECT_EQ(enabled(), "2 of 2, cost 19 1000");

    database->removeContacts({2});
    forms.view->databaseChanged();
    EXPECT_EQ(enabled(), "This chain is no longer one of the best 0100");
    driver.click(form.nextButton);
    EXPECT_EQ(enabled(), "1 of 1, cost 5 0000");
    database->removeContacts({3});
    forms.view->databaseChanged();
    EXPECT_EQ(enabled(), "Cannot find a path between those nodes! 0000");
}

TEST_F(FormsTest, helpHasItsOwnForm) {
    HelpForm form(core.toolkit(), core.shell);
    form.window->show();
    driver.settle();
    EXPECT_EQ(driver.captionOf(*form.window), "Help");
    EXPECT_TRUE(driver.showsWholeText(form.helpLabel));
    form.doHelp();
    EXPECT_EQ(core.shell.helpOpened, 1);
    driver.click(form.OK);
    EXPECT_FALSE(driver.isVisible(*form.window));
}

class DomainLinksTest : public FormsTest {
 protected:
    void openFor(const TreePath& row) {
        groupByDomains();
        choose(row, "Find all possible links");
        // During the search, the test's own actions take the place of pending events.
        core.display.onPendingEvents = [this] {
            if (act)
                act(++events);
        };
    }
    void search(const TreePath& row) {
        findFormDomain& form = *forms.findDomain;
        driver.clickRow(form.presTree, row);
        EXPECT_TRUE(driver.isEnabled(form.okButton));
        driver.click(form.okButton);
        driver.settle();
        EXPECT_FALSE(driver.isEnabled(form.stopButton));
        EXPECT_LE(driver.progressOf(form.ProgressBar1).value, 1);
    }
    std::string chains() {
        std::string all;
        TreeView& tree = forms.domainLinks->presTree;
        const int count = static_cast<int>(driver.rows(tree, {0}).size());
        for (int chain = 0; chain < count; ++chain) {
            TreePath row{0, chain};
            all += all.empty() ? "" : "; ";
            all += driver.rows(tree, {0})[static_cast<std::size_t>(chain)].text;
            for (; !driver.rows(tree, row).empty(); row.push_back(0))
                all += " > " + shownRows(driver, tree, row);
        }
        return all;
    }

    std::function<void(int)> act;
    int events = 0;
};

TEST_F(DomainLinksTest, findsAllLinksAndTheBest) {
    openFor({0});
    EXPECT_TRUE(driver.showsWholeText(forms.findDomain->Label1));
    core.dialogs.expectMessage("a is the same as a");
    search({0});
    core.dialogs.expectMessage("Cannot find a path between a and e");
    search({2});
    EXPECT_EQ(driver.pointerOver(forms.findDomain->presTree), Pointer::Busy) << "kept so";
    EXPECT_EQ(driver.pointerOver(forms.findDomain->stopButton), Pointer::Arrow);
    search({1});
    EXPECT_EQ(driver.pointerOver(forms.findDomain->presTree), Pointer::Arrow);
    TreeView& tree = forms.domainLinks->presTree;
    EXPECT_EQ(shownRows(driver, tree), "a<->c");
    EXPECT_EQ(chains(),
              "Ann (ann@b.a) > Cy (cy@c) medium; Ann (ann@b.a) > Dee (dee@c) weak; "
              "Bob (bob@b.a) > Cy (cy@c) medium; "
              "Bob (bob@b.a) > Ann (ann@b.a) strong > Dee (dee@c) weak");
    driver.click(forms.domainLinks->shortestButton);
    driver.settle();
    for (const std::size_t chain : {0U, 1U, 2U, 3U})
        EXPECT_EQ(driver.rows(tree, {0})[chain].expanded, chain == 0) << chain;
}

TEST_F(DomainLinksTest, stopsAfterTheNextChain) {
    openFor({0});
    act = [this](int) {
        EXPECT_FALSE(driver.isEnabled(forms.findDomain->okButton));
        EXPECT_EQ(driver.pointerOver(forms.findDomain->presTree), Pointer::Busy);
        driver.click(forms.findDomain->stopButton);
    };
    search({1});
    EXPECT_EQ(chains(), "Ann (ann@b.a) > Cy (cy@c) medium");
}

TEST_F(DomainLinksTest, showsNothingOnceItsFormIsClosed) {
    openFor({0});
    act = [this](int event) {
        if (event == 1)
            driver.close(*forms.findDomain->window);
        EXPECT_EQ(event, 1);
    };
    driver.clickRow(forms.findDomain->presTree, {1});
    driver.click(forms.findDomain->okButton);
    EXPECT_EQ(forms.domainLinks, nullptr);
    EXPECT_EQ(driver.pointerOver(forms.findDomain->presTree), Pointer::Arrow);
}

TEST_F(DomainLinksTest, searchesTheCurrentDatabaseForEachPair) {
    openFor({0});
    act = [this](int event) {
        if (event != 2)
            return;
        expectAgreement("Do you want to delete this domain?");
        choose({1}, "Delete");
        forms.openView(*database);
    };
    search({1});
    EXPECT_EQ(chains(), "Ann (ann@b.a) > Contact 3 is no longer in the database.");
}

TEST_F(DomainLinksTest, refusesAnotherSearchAndUpdatesTheDomainsAfterwards) {
    openFor({0});
    findFormDomain& form = *forms.findDomain;
    act = [&](int event) {
        driver.clickRow(form.presTree, {2});
        EXPECT_FALSE(driver.isEnabled(form.okButton)) << "a search is under way";
        if (event != 1)
            return;
        choose({0}, "Find all possible links");
        core.dialogs.expectMessage(
            "A search for the links of a is still running. Stop it or wait until it ends before "
            "you "
            "search for those of c.");
        choose({1}, "Find all possible links");
        expectAgreement("Do you want to delete this domain?");
        choose({2}, "Delete");
        EXPECT_EQ(shownRows(driver, form.presTree), "a, c, e");
    };
    search({1});
    EXPECT_EQ(shownRows(driver, form.presTree), "a, c");
    EXPECT_FALSE(driver.isEnabled(form.okButton)) << "nothing is selected";
    act = nullptr;
    search({1});
    driver.clickRow(form.presTree, {0});
    choose({1}, "Find all possible links");
    EXPECT_EQ(form.sourceDomain, "c");
    EXPECT_FALSE(driver.isEnabled(form.okButton)) << "the domains were filled anew";
    driver.expand(form.presTree, {0});
    driver.collapse(form.presTree, {0});
    EXPECT_EQ(shownRows(driver, form.presTree, {0}), "Loading...");
    EXPECT_FALSE(driver.rows(form.presTree, {0})[0].color);
}

TEST_F(DomainLinksTest, showsInOpenFormsWhatAnEditHasChanged) {
    choose({3}, "Find the best link");
    driver.doubleClickRow(forms.find->listTree, {2});
    openFor({0});
    search({1});
    driver.click(forms.domainLinks->shortestButton);
    driver.click(forms.view->namesRadio);
    core.dialogs.expectInput("Rename", "Enter the new name of the contact", "Ann (ann@b.a)", "Al");
    choose({0}, "Rename");
    EXPECT_EQ(saved()->nameOf(1), "Al");
    EXPECT_EQ(shownRows(driver, forms.find->listTree), "Al, Bob, Cy, Dee, Eve");
    EXPECT_EQ(shownRows(driver, forms.links->presTree, {0}), "Al (ann@b.a) weak");
    EXPECT_EQ(chains(),
              "Al (ann@b.a) > Cy (cy@c) medium; Al (ann@b.a) > Dee (dee@c) weak; "
              "Bob (bob@b.a) > Cy (cy@c) medium; "
              "Bob (bob@b.a) > Al (ann@b.a) strong > Dee (dee@c) weak");
    EXPECT_TRUE(driver.rows(forms.domainLinks->presTree, {0})[0].expanded);
    EXPECT_FALSE(driver.rows(forms.domainLinks->presTree, {0})[1].expanded);

    collect({2, 4});
    mergeAs("Eve");
    EXPECT_EQ(shownRows(driver, forms.links->presTree, {0, 0}), "Eve (cy@c/eve@e) medium");
    expectAgreement("Do you want to delete this contact ?");
    choose({0}, "Delete");
    EXPECT_FALSE(saved()->contact(1));
    EXPECT_EQ(shownRows(driver, forms.links->presTree, {0}),
              "Contact 1 is no longer in the database.");
    EXPECT_EQ(driver.rows(forms.links->presTree, {0, 0})[0].image, TreeImage::Contact);
    EXPECT_FALSE(driver.rows(forms.links->presTree, {0, 0})[0].color) << "its relation is gone";
    search({1});
    EXPECT_EQ(chains(), "Bob (bob@b.a) > Eve (cy@c/eve@e) medium")
        << "the strongest relation is gone, but once seen it stays the measure";

    database->setDate("2019-01-01T00:00:00");
    MemoryMailClient mailClient;
    mailClient.stores = {{"Post", {mail("new@x", {"bob@b.a"})}, {}}};
    driver.later([this] { driver.clickButton("Start"); });
    forms.openScan(*database, mailClient);
    EXPECT_EQ(shownRows(driver, forms.findDomain->presTree), "a, c, e, x");
    EXPECT_EQ(driver.textOf(forms.view->lastStepLabel),
              "1 new e-mail, 1 new contact, 1 new relation.");
    expectAgreement("Do you really want to delete the contacts database?");
    openOthers();
    driver.click(forms.others->delButton);
    EXPECT_EQ(shownRows(driver, forms.findDomain->presTree), "");
}

}  // namespace
}  // namespace pelk
