// Tests the automation adapter with a stand-in for the mail client: what it reads, how it reports
// failures, and which objects it holds.

#include <tuple>

#include "platform/windows/mail/automation_client.h"
#include "tests/support/core_platform.h"
#include "tests/windows/stand_in_client.h"

namespace pelk {
namespace {

class AutomationTest : public ::testing::Test {
 protected:
    const std::unique_ptr<Language> language = makeLanguage();
    std::unique_ptr<Database> database = emptyDatabase();
    FolderLog progress;
    StandInClient host;
    AutomationClient client{host.application().get(),
                            [](const std::function<void()>& clicked) { clicked(); }};

    ScanOutcome scan(Database& into, MailClient& from) {
        return Scanner(into, *language, progress).scan(*from.session());
    }
    ScanOutcome scanItems(std::vector<MemoryItem> items) {
        database = emptyDatabase();
        const MemoryFolder outbox{"Outbox", {}, {}};
        host.mail.stores = {{"Store", std::move(items), {outbox, {"Deleted Items", {}, {}}}}};
        return scan(*database, client);
    }
    std::unique_ptr<CommandPopup> addPopup() {
        return client.addPopup("Standard", "Pelk", "Pelk popup");
    }
};

std::vector<MemoryFolder> mailbox() {
    MemoryItem unsent = mail("", {"b@x"});
    unsent.hasSender = false;
    MemoryItem halfMissing = mail("a@x", {"", "c@x"}, {2024, 2, 29, 23, 59, 59});
    MemoryFolder calendar{"Kalender", {mail("no@x", {"no@y"})}, {}, false};
    calendar.folders = {{"Einladungen \xC3\xA4", {report(), mail("yes@x", {"yes@y"})}, {}}};
    MemoryFolder deleted{"Deleted Items", {mail("no@x", {"no@y"})}, {}};
    deleted.folders = {{"Kept", {mail("kept@x", {"yes@y"})}, {}}};
    MemoryFolder refusing{"Broken", {mail("no@x", {"no@y"})}, {}};
    refusing.refuses = true;
    return {{"Post",
             {mail("\xC3\xA4nn@x", {"b@x", "c@x"}), report(), unsent, halfMissing},
             {calendar, deleted, {"Outbox", {mail("no@x", {"no@y"})}, {}}, refusing}},
            {"Archive", {}, {{"Outbox", {mail("old@x", {"b@x"})}, {}}}}};
}

TEST_F(AutomationTest, givesTheScannerWhatTheMailboxHoldsAndKeepsNothingOpen) {
    MemoryMailClient memory;
    memory.stores = host.mail.stores = mailbox();
    memory.stores.back().folders[0].name = "No outbox by its id";
    const std::unique_ptr<Database> expected = emptyDatabase();
    const ScanOutcome wanted = scan(*expected, memory);
    const ScanOutcome outcome = scan(*database, client);
    EXPECT_EQ(database->xml(), expected->xml());
    EXPECT_EQ(database->totalMails(), "7") << "each report counts the e-mail before it once more";
    EXPECT_NE(database->contactIdByAddress("old@x"), 0) << "its folder has the name of the outbox";
    EXPECT_EQ(database->contactIdByAddress("no@x"), 0);
    EXPECT_EQ(outcome.faults, wanted.faults);
    EXPECT_EQ(host.mail.openItems, 0);
    EXPECT_LE(host.mail.mostOpenItems, 3) << "the last e-mail, the next, and a reply";
}

TEST_F(AutomationTest, looksUpAddressesOfTheServersDirectory) {
    host.mail.directory = {{"/o=Firm/cn=ann", "Ann@firm.x"}, {"/O=Firm/cn=bob", "bob@firm.x"}};
    for (const bool byProperty : {true, false}) {
        host.mail.directoryKnowsProperty = byProperty;
        const ScanOutcome outcome =
            scanItems({mail("/o=Firm/cn=ann", {"/O=Firm/cn=bob", "/o=Firm/cn=gone"})});
        EXPECT_EQ(outcome.faults, 0) << outcome.firstFault;
        EXPECT_NE(database->contactIdByAddress("ann@firm.x"), 0);
        EXPECT_NE(database->contactIdByAddress("bob@firm.x"), 0);
        EXPECT_NE(database->contactIdByAddress("/o=firm/cn=gone"), 0);
    }
}

TEST_F(AutomationTest, passesOverWhatIsFaultyAndReportsItInTheWordsOfTheMailClient) {
    EXPECT_EQ(scanItems({mail("a@x", {"b@x"}, kNoDate), mail("c@x", {"d@x"})}).firstFault,
              "An e-mail has no date of creation.");
    EXPECT_EQ(database->totalMails(), "1");
    EXPECT_EQ(database->contactIdByAddress("a@x"), 0);
    EXPECT_EQ(scanItems({mail("a@x", {""})}).firstFault,
              "The mail client refuses Address of a recipient: The address is missing.");
    host.mail.refusesPeople = true;
    EXPECT_EQ(scanItems({mail("a@x", {"b@x"})}).firstFault,
              "The mail client refuses Recipients of a reply: error 0x80004004");
    EXPECT_THROW(AutomationClient(nullptr, {}), Error);
}

TEST_F(AutomationTest, losesOnlyTheNameOrTheSenderThatIsRefused) {
    MemoryItem item = mail("", {"b@x"});
    item.recipients[0].name.clear();
    EXPECT_EQ(scanItems({item}).faults, 1);
    EXPECT_EQ(database->totalMails(), "1");
    EXPECT_NE(database->contactIdByAddress("b@x"), 0);
    host.mail.stores[0].folders.clear();
    EXPECT_EQ(scan(*database, client).faults, 3) << "neither default folder is found";
    EXPECT_EQ(database->totalMails(), "2");
}

TEST_F(AutomationTest, knowsListsRobotsAndTheUser) {
    MemoryItem listed = mail("a@x", {"b@x"});
    listed.automation = {{{"List-Post", "l@x"}}, {}, false, "bulk", {}};
    host.mail.stores = {
        {"Post", {listed, mail("a@x", {"b@x"})}, {{"Sent Items", {}, {}}, {"Outbox", {}, {}}}}};
    host.mail.accounts = {"me@x", "me@y"};
    const std::unique_ptr<MailSession> session = client.session();
    EXPECT_EQ(session->ownAddresses(), (std::vector<std::string>{"me@x", "me@y"}));
    const std::unique_ptr<MailFolder> store = session->folders()->next();
    EXPECT_EQ(store->mailItem(1)->automation(), listed.automation);
    EXPECT_EQ(store->mailItem(2)->automation(), MailAutomation()) << "it has no header";
    const std::unique_ptr<MailFolders> folders = store->folders();
    EXPECT_TRUE(folders->next()->isSentMail());
    EXPECT_FALSE(folders->next()->isSentMail());
}

TEST_F(AutomationTest, tellsStoresApartWhereTheMailClientDoes) {
    host.mail.stores = mailbox();
    host.mail.stores[0].place = "00A7";
    const std::unique_ptr<MailFolders> stores = client.session()->folders();
    const std::unique_ptr<MailFolder> first = stores->next();
    EXPECT_EQ(first->place(), "00A7");
    const std::unique_ptr<MailFolder> inner = first->folders()->next();
    EXPECT_EQ(inner->place(), "00A7/");
    EXPECT_EQ(inner->folders()->next()->place(), "00A7/");
    const std::unique_ptr<MailFolder> second = stores->next();
    EXPECT_EQ(second->place(), "");
    EXPECT_EQ(second->folders()->next()->place(), "");
}

TEST_F(AutomationTest, putsTheMenuOnTheBarOnceWithItsButtons) {
    int clicks = 0;
    addPopup()->addButton("Left over", "old", [] {});
    const auto popup = addPopup();
    const auto button = popup->addButton("About", "Pelk about", [&] { ++clicks; });
    ASSERT_EQ(host.standardBar->controls.size(), 1U);
    const BarControl& menu = *host.standardBar->controls[0];
    ASSERT_EQ(menu.controls.size(), 1U);
    const BarControl& inside = *menu.controls[0];
    const auto looks = [](const BarControl& control) {
        return std::tuple(control.caption, control.tag, control.action, control.type);
    };
    EXPECT_EQ(looks(menu), std::tuple("Pelk", "Pelk popup", "!<Pelk.Connect>", 10));
    EXPECT_EQ(looks(inside), std::tuple("About", "Pelk about", "!<Pelk.Connect>", 1));
    EXPECT_EQ(inside.style, 2);
    EXPECT_TRUE(menu.temporary && menu.visible && inside.temporary && inside.visible);
    EXPECT_TRUE(host.click("About"));
    EXPECT_EQ(clicks, 1);
}

TEST_F(AutomationTest, removesAButtonWithinItsClickWhenForgottenAndWhenGone) {
    std::unique_ptr<CommandButton> button;
    int after = 0;
    const std::string captured(100, 'x');
    button = addPopup()->addButton("About", "Pelk about", [&, captured] {
        const std::unique_ptr<CommandButton> removed = std::move(button);
        removed->remove();
        after = static_cast<int>(captured.size());
    });
    EXPECT_TRUE(host.click("About"));
    EXPECT_EQ(after, 100) << "the handler lives until it returns";
    EXPECT_TRUE(host.menu().empty());
    const auto popup = addPopup();
    popup->addButton("Forgotten", "1", [] { FAIL(); });
    EXPECT_FALSE(host.click("Forgotten"));
    const auto gone = popup->addButton("Gone", "2", [] {});
    host.standardBar->controls[0]->controls.clear();
    gone->remove();
}

TEST_F(AutomationTest, reportsRefusedMenus) {
    EXPECT_THROW(client.addPopup("Other", "Pelk", "Pelk popup"), Error);
    const auto popup = addPopup();
    host.refusesControls = true;
    EXPECT_THROW(popup->addButton("About", "1", [] {}), Error);
    EXPECT_THROW(addPopup(), Error);
    host.hasWindow = false;
    EXPECT_THROW(addPopup(), Error);
}

}  // namespace
}  // namespace pelk
