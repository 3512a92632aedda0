#include "maintenance/database_import.h"

#include <gtest/gtest.h>

#include "tests/support/core_platform.h"

namespace pelk {
namespace {

/// Ann has two addresses. She exchanged 3 e-mails with Bob and none with Cy. The ids are not in
/// order.
constexpr const char* kImported =
    "<pelkDB date='2020-01-01T00:00:00' totalMails='5' totalContacts='9'><contacts>"
    "<contact id='7' name='Ann' note='kept'><emails><email value='ann@a'/><email value='ann@b'/>"
    "</emails></contact><contact id='2' name='Bob'><emails><email "
    "value='bob@a'/></emails></contact>"
    "<contact id='9' name='Cy'><emails><email value='cy@a'/></emails></contact></contacts>"
    "<relations total='0'><relation part1='2' part2='7' weight='3'/>"
    "<relation part1='7' part2='9' weight='0'/></relations></pelkDB>";

class ImportTest : public ::testing::Test, public ImportGuide {
 protected:
    CorePlatform core;
    std::unique_ptr<Database> current = emptyDatabase();
    std::vector<std::string> questions;
    bool answer = false;
    std::function<void()> meanwhile;

    void SetUp() override { core.files.folders.insert({"/data/pelk", "/addin"}); }
    bool confirmsMerge(const std::string& question) override {
        questions.push_back(question);
        return answer;
    }
    void itemStarted() override {
        if (meanwhile)
            meanwhile();
    }
    ImportResult importFile(const std::string& path = "/in.db") {
        return importDatabaseFile(*current, path, core.storage(), *this);
    }
    ImportOutcome import(const std::string& document) {
        core.storage().exportDatabase(*loadDocument(document), "/in.db");
        return importFile().outcome;
    }
    std::string contacts() {
        std::string all;
        current->forEachContact([&all](const Contact& contact) {
            all += std::to_string(contact.id) + contact.name;
            for (const std::string& address : contact.addresses)
                all += " " + address;
            all += "; ";
        });
        return all;
    }
    double weight(int id, int other) {
        const std::optional<Relation> relation = current->relationOfPair(id, other);
        return relation ? relation->weight : 0;
    }
};

TEST_F(ImportTest, intoAnEmptyDatabaseAssignsNewIds) {
    EXPECT_EQ(import(kImported), ImportOutcome::Imported);
    EXPECT_EQ(contacts(), "1Ann ann@a ann@b; 2Bob bob@a; 3Cy cy@a; ");
    EXPECT_EQ(current->contactElements().front().text("note"), "kept");
    EXPECT_EQ(current->totalMails(), "5");
    EXPECT_EQ(current->totalContacts(), 3);
    EXPECT_EQ(weight(1, 2), 3);
    EXPECT_EQ(weight(1, 3), 0);
    EXPECT_EQ(current->relationCount(), 2U) << "one that counts no e-mail is kept";
    EXPECT_EQ(core.storage().loadDatabase().database->xml(), current->xml());
    const std::string plain = core.files.files["/addin/pelkdb.xml"];
    EXPECT_EQ(plain.substr(0, 6), std::string("\xFF\xFE<\0?\0", 6));
    EXPECT_EQ(plain.size(), 2 * current->xml().size() + 2);
}

TEST_F(ImportTest, twiceDoublesWeightsAndAddsNoContacts) {
    import(kImported);
    core.shell.own = std::nullopt;
    EXPECT_EQ(import(kImported), ImportOutcome::Imported);
    EXPECT_EQ(contacts(), "1Ann ann@a ann@b; 2Bob bob@a; 3Cy cy@a; ");
    EXPECT_EQ(current->totalMails(), "10");
    EXPECT_EQ(weight(1, 2), 6);
    EXPECT_TRUE(core.files.fileExists("/data/pelk/pelkdb.xml"));
    EXPECT_TRUE(core.files.fileExists("/data/pelk/pelk.db.bak"));
}

TEST_F(ImportTest, addsNewAddressesToAKnownContact) {
    current->addContact("Anna", "ann@b");
    current->addContact("Robert", "bob@a");
    current->addRelationWeight(1, 2, 10);
    EXPECT_EQ(import(kImported), ImportOutcome::Imported);
    EXPECT_EQ(contacts(), "1Anna ann@b ann@a; 2Robert bob@a; 3Cy cy@a; ");
    EXPECT_EQ(weight(1, 2), 13);
    EXPECT_EQ(current->contactIdByAddress("ann@a"), 1);
}

TEST_F(ImportTest, asksBeforeItMergesContactsAndOnCancelLeavesThemOut) {
    current->addContact("A", "ann@a");
    current->addContact("B", "ann@b");
    EXPECT_EQ(import(kImported), ImportOutcome::Imported);
    EXPECT_EQ(questions, (std::vector<std::string>{"The following contacts will be merged under "
                                                   "the name Ann: Shall I continue?"}));
    EXPECT_EQ(contacts(), "1A ann@a; 2B ann@b; 3Bob bob@a; 4Cy cy@a; ");
    EXPECT_EQ(current->relationCount(), 0U);
    current->addAddresses(1, {"ann@c"});
    import(
        "<pelkDB date='2020-01-01T00:00:00'><contacts><contact id='1' name='Anna'><emails>"
        "<email value='ann@a'/>"
        "<email value='ann@b'/><email value='ann@c'/></emails></contact></contacts>"
        "<relations/></pelkDB>");
    EXPECT_EQ(questions.size(), 2U) << "the owners are A, B and A again";
}

TEST_F(ImportTest, endsQuietlyOnOkAndChangesNothing) {
    current->addContact("A", "ann@a");
    current->addContact("B", "ann@b");
    core.storage().saveDatabase(*current);
    const std::string before = current->xml();
    answer = true;
    EXPECT_EQ(import(kImported), ImportOutcome::Ended);
    EXPECT_EQ(current->xml(), before);
    EXPECT_EQ(core.storage().loadDatabase().database->xml(), before);
}

TEST_F(ImportTest, dropsRelationsWithOneselfAndUnknownContacts) {
    current->addContact("Both", "bob@a");
    current->addAddresses(1, {"ann@a", "ann@b"});
    const auto merge = [this](const char* document) {
        EXPECT_TRUE(importMerge(*current, *loadDocument(document), *this));
    };
    merge(
        "<pelkDB totalMails='-4'><contacts><contact id='1'><emails>"
        "<email value='ann@a'/></emails></contact><contact id='2' name=\"O'Hara\">"
        "<emails><email value=\"o'hara@x\"/></emails></contact>"
        "<contact id='2' name='Bob'><emails><email value='bob@a'/></emails></contact>"
        "<contact id='12abc'/><contact/></contacts>"
        "<relations><relation part1='1' part2='2' weight='12abc'/>"
        "<relation part1='1' part2='99' weight='7'/>"
        "<relation part1='12' part2='1' weight='1'/><relation/></relations></pelkDB>");
    EXPECT_EQ(contacts(), "1Both bob@a ann@a ann@b; 2O'Hara o'hara@x; 3; 4; ");
    EXPECT_EQ(weight(1, 2), 12);
    EXPECT_EQ(current->relationCount(), 1U);
    EXPECT_EQ(current->totalMails(), "0");
    merge(
        "<pelkDB><contacts><contact id='1' name='b'><emails>"
        "<email value='ann@a'/><email value='bob@a'/></emails></contact></contacts>"
        "<relations><relation part1='1' part2='1' weight='9'/></relations></pelkDB>");
    EXPECT_TRUE(questions.empty()) << "two addresses of one contact are no conflict";
}

TEST_F(ImportTest, refusesAnUnsoundDocumentAndNamesTheFault) {
    const std::string before = current->xml();
    for (const auto& [sound, broken, named] : {std::tuple("2020-01-01", "2020-01-32", "2020-01-32"),
                                               {"weight='3'", "weight='-3'", "\"-3\""},
                                               {"id='2'", "id='7'", "two contacts have the id 7"},
                                               {"totalMails", "minInd='5' totalMails", "minInd"}}) {
        std::string document = kImported;
        document.replace(document.find(sound), std::string(sound).size(), broken);
        EXPECT_EQ(import(document), ImportOutcome::Unsound) << broken;
        EXPECT_NE(importFile().fault.find(named), std::string::npos) << importFile().fault;
    }
    core.files.files["/bad.db"] = "x" + core.files.files["/in.db"];
    for (const char* path : {"/bad.db", "/nowhere.db"})
        EXPECT_EQ(importFile(path).outcome, ImportOutcome::Unreadable);
    EXPECT_EQ(current->xml(), before);
}

/// A repeated import would count every weight twice.
TEST_F(ImportTest, succeedsWithoutItsPlainCopy) {
    import(kImported);
    importFile();
    const int before = core.files.steps;
    importFile();
    const int steps = core.files.steps - before;
    core.files.files.erase("/addin/pelkdb.xml");
    core.files.failAt = core.files.steps + steps;
    const ImportResult result = importFile();
    EXPECT_EQ(result.outcome, ImportOutcome::Imported);
    EXPECT_NE(result.fault.find("/addin/pelkdb.xml"), std::string::npos) << result.fault;
    EXPECT_FALSE(core.files.fileExists("/addin/pelkdb.xml"));
    EXPECT_EQ(weight(1, 2), 12);
    EXPECT_EQ(core.storage().loadDatabase().database->xml(), current->xml());
}

TEST_F(ImportTest, changesNothingWhenTheDatabaseIsFull) {
    current = loadDocument("<pelkDB totalContacts='32766'><contacts/><relations/></pelkDB>");
    const std::string full = current->xml();
    EXPECT_THROW(import(kImported), ContactLimitReached);
    EXPECT_EQ(current->xml(), full);
}

TEST_F(ImportTest, failsWhenTheDatabaseIsEditedDuringIt) {
    current->addContact("Zoe", "zoe@z");
    meanwhile = [this] { current->renameContact(1, "Zora"); };
    EXPECT_THROW(import(kImported), Error);
    EXPECT_EQ(contacts(), "1Zora zoe@z; ");
}

TEST_F(ImportTest, deletionEmptiesTheDatabase) {
    import(kImported);
    current->setThresholds(70, 30);
    deleteDatabase(*current, core.storage());
    EXPECT_EQ(current->contactCount(), 0U);
    EXPECT_EQ(current->thresholds().strong, 50);
    EXPECT_EQ(current->date(), "1970-01-01T00:00:00");
    EXPECT_EQ(core.storage().loadDatabase().database->xml(), current->xml());
}

}  // namespace
}  // namespace pelk
