#include "scan/ParseForm.h"

#include "scan/scan_notes.h"
#include "tests/support/core_platform.h"
#include "tests/support/memory_mail.h"

namespace pelk {
namespace {

class ParseFormTest : public ::testing::Test {
 protected:
    CorePlatform core;
    Driver& driver = core.driver();
    MemoryMailClient client;
    std::unique_ptr<Database> database = core.storage().loadDatabase().database;
    ParseForm form{core.ui(), core.platform(), core.storage()};
    int viewsOpened = 0;

    void SetUp() override {
        client.stores = {{"Post", {mail("a@x", {"b@x"})}, {{"Sent", {mail("b@x", {"a@x"})}, {}}}}};
        form.database = database.get();
        form.mailClient = &client;
        form.openView = [this] { ++viewsOpened; };
    }
    void showAndDo(std::function<void()> act) {
        driver.later(std::move(act));
        form.showModal("What a scan does.", "Please click the start button!");
    }
    std::string savedDate() { return core.storage().loadDatabase().database->date(); }
};

TEST_F(ParseFormTest, showsItsTextsInFullAndChangesNothingUnlessStarted) {
    showAndDo([this] {
        EXPECT_EQ(driver.textOf(form.staticLabel), "What a scan does.");
        EXPECT_EQ(driver.textOf(form.DynamicLabel), "Please click the start button!");
        form.staticLabel.setText(
            "You must first scan your mailbox. This process may take a while. "
            "The deleted and outbox folders will NOT be scanned.");
        for (Control* control : std::initializer_list<Control*>{
                 &form.staticLabel, &form.DynamicLabel, &form.startButton, &form.cancelButton})
            EXPECT_TRUE(driver.showsWholeText(*control)) << driver.textOf(*control);
        driver.close(*form.window);
    });
    EXPECT_EQ(viewsOpened, 0);
    showAndDo([this] { driver.click(form.cancelButton); });
    EXPECT_EQ(viewsOpened, 1);
    EXPECT_FALSE(driver.isVisible(*form.window));
    EXPECT_EQ(database->totalMails(), "0");
    EXPECT_EQ(savedDate(), "1970-01-01T00:00:00");
}

TEST_F(ParseFormTest, tellsOfLostDatesBeforeItScans) {
    core.files.files["/data/pelk/pelk-stores.db"] = "no dates";
    core.dialogs.expectMessage(
        "The file /data/pelk/pelk-stores.db cannot be used. It does not begin as a database file "
        "does. It will be replaced; this scan counts the e-mails that came after the last one, "
        "1970-01-01T00:00:00.");
    showAndDo([this] { driver.click(form.startButton); });
    EXPECT_EQ(viewsOpened, 1);
}

TEST_F(ParseFormTest, scansSavesAndOpensTheView) {
    std::vector<std::string> seen;
    std::vector<std::string> whole;
    core.display.onPendingEvents = [&] {
        EXPECT_FALSE(driver.isEnabled(form.startButton));
        EXPECT_FALSE(driver.isEnabled(form.cancelButton));
        driver.close(*form.window);
        EXPECT_TRUE(driver.isVisible(*form.window)) << "a scan cannot be interrupted";
        EXPECT_EQ(driver.progressOf(form.parsingProgress).maximum, 2);
        seen.push_back(driver.textOf(form.DynamicLabel));
        whole.push_back(driver.textOf(form.wholeLabel) + ": " +
                        std::to_string(driver.progressOf(form.wholeProgress).value));
    };
    showAndDo([this] { driver.click(form.startButton); });
    EXPECT_EQ(seen, (std::vector<std::string>{"Reading Post", "Reading Sent"}));
    EXPECT_EQ(whole, (std::vector<std::string>{"Folder 1 of 2: 0", "Folder 2 of 2: 500"}));
    EXPECT_EQ(client.told, "2 new e-mails, 2 new contacts, 1 new relation.");
    EXPECT_FALSE(driver.isVisible(*form.window));
    EXPECT_EQ(viewsOpened, 1);
    EXPECT_EQ(core.display.busyPointers, (std::vector<bool>{true, false}));
    EXPECT_EQ(savedDate(), "2026-11-22T10:30:00");
    EXPECT_EQ(database->strongestWeight(), 2);
    EXPECT_TRUE(driver.isEnabled(form.startButton));
    EXPECT_EQ(driver.progressOf(form.parsingProgress).value, 1);
}

TEST_F(ParseFormTest, savesOnceAndTakesTheStampWhenTheWalkIsOver) {
    core.files.steps = 0;
    core.display.onPendingEvents = [this] {
        ++core.clock.time.minute;
        EXPECT_EQ(core.files.steps, 0);
        EXPECT_EQ(database->date(), "1970-01-01T00:00:00");
    };
    showAndDo([this] { driver.click(form.startButton); });
    EXPECT_EQ(savedDate(), "2026-11-22T10:32:00");
}

TEST_F(ParseFormTest, reportsInOneBoxWhatWasLeftOutOrUnreadable) {
    client.stores.push_back({"Deleted Items", {mail("c@x", {"d@x"})}, {}});
    client.stores.push_back({"Locked", {}, {}});
    client.stores[2].refuses = true;
    core.dialogs.expectMessage(
        "Something could not be read: Access to the folder Locked was refused.\n"
        "left out: Deleted Items (1 e-mail)");
    showAndDo([this] { driver.click(form.startButton); });
    EXPECT_FALSE(driver.isVisible(*form.window));
    EXPECT_EQ(viewsOpened, 1);
    EXPECT_EQ(client.told, "2 new e-mails, 2 new contacts, 1 new relation, 1 folder left out.");
    client.stores.resize(1);
    showAndDo([this] { driver.click(form.startButton); });
    EXPECT_EQ(client.told, "No new e-mails.");
}

TEST_F(ParseFormTest, offersToSaveAgainWhenTheDiskWasFull) {
    core.files.steps = 0;
    core.files.failAt = 2;
    core.dialogs.expectMessage(
        "/data/pelk/pelk.db cannot be written. The e-mails have been "
        "counted, but the result is not saved. Click the start button to "
        "save it.");
    showAndDo([this] {
        driver.click(form.startButton);
        EXPECT_TRUE(driver.isVisible(*form.window));
        EXPECT_EQ(core.display.busyPointers.back(), false);
        EXPECT_EQ(savedDate(), "1970-01-01T00:00:00");
        driver.click(form.startButton);
    });
    EXPECT_EQ(viewsOpened, 1);
    EXPECT_EQ(core.storage().loadDatabase().database->totalMails(), "2")
        << "nothing is counted twice";
}

TEST_F(ParseFormTest, reportsOnceThatTheDatabaseIsFull) {
    database = loadDocument(
        "<pelkDB date='1970-01-01T00:00:00' totalContacts='32766'><contacts/>"
        "<relations/></pelkDB>");
    form.database = database.get();
    core.dialogs.expectMessage(databaseFullMessage());
    showAndDo([this] { driver.click(form.startButton); });
    EXPECT_EQ(viewsOpened, 1);
    EXPECT_EQ(core.storage().loadDatabase().database->totalMails(), "2");
}

TEST_F(ParseFormTest, aRefusingMailClientLeavesTheDateUnchanged) {
    client.refusesSession = true;
    core.dialogs.expectMessage("The mail client refuses access to its mail.");
    showAndDo([this] {
        driver.click(form.startButton);
        driver.close(*form.window);
    });
    EXPECT_EQ(database->date(), "1970-01-01T00:00:00");
}

}  // namespace
}  // namespace pelk
