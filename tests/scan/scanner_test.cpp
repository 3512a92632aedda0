#include "scan/scanner.h"

#include "scan/scan_notes.h"
#include "tests/support/core_platform.h"
#include "tests/support/memory_mail.h"

namespace pelk {
namespace {

class ScannerTest : public ::testing::Test {
 protected:
    const std::unique_ptr<Language> language = makeLanguage();
    MemoryMailClient client;
    FolderLog progress;
    Database database = std::move(*emptyDatabase());

    ScanOutcome scan() { return Scanner(database, *language, progress).scan(*client.session()); }
    ScanOutcome scanItems(std::vector<MemoryItem> items) {
        client.stores = {{"Store", std::move(items), {}}};
        return scan();
    }
    double weight(const std::string& a, const std::string& b) {
        const int id = database.contactIdByAddress(a);
        for (const Relation& relation : database.relationsOf(id))
            if (relation.partnerOf(id) == database.contactIdByAddress(b))
                return relation.weight;
        return 0;
    }
};

TEST_F(ScannerTest, countsAnEmailAndEachPairOfSenderAndRecipient) {
    const ScanOutcome outcome =
        scanItems({mail("Ann@A", {"bob@b", "CY@c", "dee@d"}), mail("bob@b", {"ann@a", "ann@a"}),
                   mail("ann@a", {"ann@a"})});
    EXPECT_EQ(database.totalMails(), "3");
    EXPECT_EQ(database.contactCount(), 4U);
    EXPECT_EQ(database.relationCount(), 3U);
    EXPECT_EQ(weight("ann@a", "bob@b"), 3);
    EXPECT_EQ(weight("ann@a", "cy@c"), 1);
    EXPECT_EQ(weight("bob@b", "cy@c"), 0);
    EXPECT_EQ(database.contact(1)->name, "Ann") << "keeps the first name";
    EXPECT_EQ(outcome.mails, 3);
    EXPECT_EQ(outcome.contacts, 4U);
    EXPECT_EQ(outcome.relations, 3U);
}

TEST_F(ScannerTest, walksEachFolderBeforeItsSubfolders) {
    MemoryFolder calendar{"Calendar", {mail("no@x", {"no@y"})}, {}, false};
    calendar.folders = {{"Invitations", {mail("yes@x", {"yes@y"})}, {}}};
    MemoryFolder deleted{"Deleted Items", {mail("no@x", {"no@y"})}, {}};
    deleted.folders = {{"Kept", {mail("kept@x", {"yes@y"})}, {}}};
    client.stores = {{"Store",
                      {mail("root@x", {"yes@y"})},
                      {calendar, deleted, {"Outbox", {mail("no@x", {"no@y"})}, {}}}},
                     {"Archive", {mail("old@x", {"yes@y"})}, {}}};
    scan();
    EXPECT_EQ(progress.folders,
              (std::vector<std::string>{"Store", "Invitations", "Kept", "Archive"}));
    EXPECT_EQ(database.totalMails(), "4");
    EXPECT_EQ(database.contactIdByAddress("no@x"), 0);
}

TEST_F(ScannerTest, countsOnlyWhatIsNewerThanTheLastScan) {
    database.setDate("2026-11-22T10:00:00");
    scanItems({mail("a@x", {"b@x"}, {2026, 11, 22, 10, 0, 0}),
               mail("a@x", {"b@x"}, {2026, 11, 22, 9, 59, 59}),
               mail("a@x", {"b@x"}, {2026, 11, 22, 10, 0, 1})});
    EXPECT_EQ(database.totalMails(), "1");
}

TEST_F(ScannerTest, countsTheEmailBeforeANonMailItemAgain) {
    client.stores = {{"First", {report(), mail("a@x", {"b@x"}), report(), report()}, {}},
                     {"Second", {report(), mail("a@x", {"c@x"})}, {}}};
    const ScanOutcome outcome = scan();
    EXPECT_EQ(weight("a@x", "b@x"), 4) << "once, and again for each of three reports after it";
    EXPECT_EQ(weight("a@x", "c@x"), 1);
    EXPECT_EQ(outcome.faults, 0) << "such items are ordinary";
}

TEST_F(ScannerTest, aFaultAbandonsOnlyItsStep) {
    MemoryItem senderless = mail("", {"b@x"});
    senderless.hasSender = false;
    client.stores = {{"Refused", {}, {}},
                     {"Store",
                      {senderless, mail("", {"b@x"}), mail("a@x", {"b@x", "", "c@x"}),
                       mail("o'hara@x", {"d@x", "e@x"}), mail("a@x", {"o'hara@x", "c@x"})},
                      {}}};
    client.stores[0].refuses = true;
    client.stores[0].folders = {{"Inside", {mail("a@x", {"b@x"})}, {}}};
    const ScanOutcome outcome = scan();
    EXPECT_EQ(database.totalMails(), "5") << "the sender without an address, too";
    EXPECT_EQ(weight("a@x", "b@x"), 2);
    EXPECT_EQ(weight("a@x", "c@x"), 2) << "recipients after a bad one are recorded";
    EXPECT_EQ(weight("d@x", "e@x"), 0);
    EXPECT_NE(database.contactIdByAddress("e@x"), 0) << "recipients of a bad sender are contacts";
    EXPECT_EQ(outcome.faults, 3);
    EXPECT_EQ(outcome.firstFault, "Access to the folder Refused was refused.");
}

TEST_F(ScannerTest, aFailedLookUpLosesNothingElse) {
    client.stores = {{"Store", {mail("a@x", {"b@x"}), report()}, {}}};
    client.stores[0].refusesName = client.refusesDefaultFolders = true;
    const ScanOutcome outcome = scan();
    EXPECT_EQ(weight("a@x", "b@x"), 2);
    EXPECT_EQ(outcome.faults, 3);
    EXPECT_EQ(scanWarnings(outcome),
              std::vector<std::string>{
                  "Something could not be read, 3 times in all. First: There is no such folder."});
}

TEST_F(ScannerTest, anUnreadableItemIsNotFollowedByAnExtraCount) {
    MemoryItem refusing = mail("c@x", {"d@x"});
    refusing.refuses = true;
    scanItems({mail("a@x", {"b@x"}), refusing, report(), mail("a@x", {"b@x"}), report()});
    EXPECT_EQ(weight("a@x", "b@x"), 3);
}

TEST_F(ScannerTest, countsACopyInAnotherFolderOnceUnlessAskedForAll) {
    MemoryItem item = mail("a@x", {"b@x"});
    item.print = 1;
    const MemoryItem nameless = item;
    item.id = "1@a";
    client.stores = {
        {"Store",
         {},
         {{"In", {item, item, nameless}, {}}, {"All", {item, report(), nameless}, {}}}},
        {"Other", {item}, {}}};
    ScanOutcome outcome = scan();
    EXPECT_EQ(weight("a@x", "b@x"), 5);
    EXPECT_EQ(scanNotes(outcome), std::vector<std::string>{"copies in other folders: 1"});
    EXPECT_EQ(scanMessage(outcome), "");
    outcome = Scanner(database, *language, progress, StoreLedger(database.date()), {true, ""})
                  .scan(*client.session());
    EXPECT_EQ(outcome.mails, 7) << "the copy, and again for the report after it";
    EXPECT_EQ(outcome.copies, 0);
}

TEST_F(ScannerTest, reportsWhatAndWhoWasLeftOut) {
    MemoryItem binned = mail("a@x", {"b@x"});
    binned.label = DefaultFolder::DeletedItems;
    MemoryItem draft = binned;
    draft.label = DefaultFolder::Drafts;
    MemoryFolder outbox{"Outbox", {binned}, {}};
    outbox.refuses = true;
    client.stores = {{"Store",
                      {binned, draft, binned, mail("O'a@x", {"o'a@X", "o'b@x"})},
                      {{"Deleted Items", {draft}, {}}, outbox, {"Deleted Items", {}, {}}}}};
    const ScanOutcome outcome = scan();
    EXPECT_EQ(outcome.mails, 2) << "drafts are counted, unless the session leaves them out";
    EXPECT_EQ(outcome.faults, 0);
    EXPECT_EQ(scanMessage(outcome),
              "The scan is done.\nleft out: Deleted Items (1 e-mail)\nleft out: Outbox\n"
              "left out: labelled Trash (2 e-mails)\n"
              "left out: 2 people with an apostrophe in the address");
}

TEST_F(ScannerTest, finishesWhenTheDatabaseIsFull) {
    database = std::move(
        *loadDocument("<pelkDB date='1970-01-01T00:00:00' totalContacts='32765'><contacts/>"
                      "<relations/></pelkDB>"));
    const ScanOutcome outcome =
        scanItems({mail("a@x", {"b@x", "c@x"}), mail("a@x", {"b@x"}), mail("d@x", {"a@x"})});
    EXPECT_TRUE(outcome.databaseFull);
    EXPECT_EQ(database.totalMails(), "3");
    EXPECT_EQ(database.contactCount(), 2U);
    EXPECT_EQ(weight("a@x", "b@x"), 2);
}

TEST_F(ScannerTest, storesOnlyTextThatTheDocumentCanCarry) {
    MemoryItem item = mail("", {"b@x"});
    item.sender = {"A\x01n\xFFn", "an\nn@\xFFx"};
    scanItems({item});
    EXPECT_EQ(database.contact(1)->name, "A n\uFFFDn");
    EXPECT_EQ(database.contact(1)->addresses[0], "an n@\uFFFDx");
    loadDocument(database.xml());
}

}  // namespace
}  // namespace pelk
