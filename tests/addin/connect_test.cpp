#include "addin/Connect.h"

#include <gtest/gtest.h>

#include "tests/support/core_platform.h"
#include "tests/support/memory_mail.h"

namespace pelk {
namespace {

constexpr const char* kReminder =
    "There are more than 7 days since you last scanned your emails. Do you want to scan them now?";

class ConnectTest : public ::testing::Test {
 protected:
    CorePlatform core;
    Driver& driver = core.driver();
    MemoryMailClient client;

    void SetUp() override { client.stores = {{"Post", {mail("a@x", {"b@x"})}, {}}}; }
    void TearDown() override { client.buttons.clear(); }

    void saveDatabaseScannedAt(const std::string& date) {
        const std::unique_ptr<Database> database = emptyDatabase();
        database->setDate(date);
        core.files.folders.insert("/data/pelk");
        core.storage().saveDatabase(*database);
    }
    std::vector<std::string> captions() {
        std::vector<std::string> captions;
        for (const MemoryMailClient::Button& button : client.buttons)
            captions.push_back(button.caption);
        return captions;
    }
};

TEST_F(ConnectTest, putsItsMenuOnTheStandardBarOnceForEachConnection) {
    Connect connect(core.ui(), core.platform());
    const std::vector<std::string> menu{"View your community", "Check for new e-mails",
                                        "Other options", "Help", "About"};
    for (int connection = 0; connection < 2; ++connection) {
        connect.OnConnection(client);
        EXPECT_EQ(captions(), menu);
        EXPECT_EQ(client.popups.back(), "Standard/Pelk/Pelk popup");
        EXPECT_EQ(client.buttons.front().tag, "Pelk view");
        connect.OnDisconnection();
        EXPECT_TRUE(client.buttons.empty());
    }
}

/// Clicks the View button and checks which windows open.
class ViewTest : public ConnectTest {
 protected:
    /// Clicks View. If the scan form opens, starts or cancels it, or closes it for "".
    void clickView(Connect& connect, const char* scanFormButton) {
        connect.OnConnection(client);
        bool scanFormSeen = false;
        const bool closed = scanFormButton != nullptr && *scanFormButton == 0;
        if (scanFormButton != nullptr)
            driver.later([&] {
                scanFormSeen = driver.isWindowShown("Check for new e-mails");
                closed ? driver.closeModal() : driver.clickButton(scanFormButton);
            });
        client.button("View your community")->clicked();
        EXPECT_EQ(scanFormSeen, scanFormButton != nullptr);
        driver.settle();
        EXPECT_NE(driver.isWindowShown("Relations Tree"), closed) << "the scan form alone leads on";
        EXPECT_FALSE(driver.isWindowShown("Check for new e-mails"));
        connect.OnDisconnection();
        EXPECT_FALSE(driver.isWindowShown("Relations Tree"));
    }
    std::string totalMails() { return core.storage().loadDatabase().database->totalMails(); }
};

TEST_F(ViewTest, scansFirstWhenTheDatabaseWasNeverScanned) {
    Connect connect(core.ui(), core.platform());
    clickView(connect, "");
    clickView(connect, "Start");
    EXPECT_EQ(totalMails(), "1");
}

TEST_F(ViewTest, opensImmediatelyWhenTheLastScanIsSevenDaysOld) {
    saveDatabaseScannedAt("2026-11-15T10:30:00");
    Connect connect(core.ui(), core.platform());
    clickView(connect, nullptr);
}

TEST_F(ViewTest, asksWhetherToScanWhenTheLastScanIsOlder) {
    saveDatabaseScannedAt("2026-11-15T10:29:00");
    Connect connect(core.ui(), core.platform());
    core.dialogs.expectMessage(kReminder, Buttons::YesNo, Answer::No);
    clickView(connect, nullptr);
    EXPECT_EQ(totalMails(), "0");
    core.dialogs.expectMessage(kReminder, Buttons::YesNo, Answer::Yes);
    clickView(connect, "Cancel");
    core.dialogs.expectMessage(kReminder, Buttons::YesNo, Answer::Yes);
    clickView(connect, "");
}

TEST_F(ConnectTest, distinguishesFirstAndLaterScans) {
    for (const bool first : {true, false}) {
        saveDatabaseScannedAt(first ? "1970-01-01T00:00:00" : "2020-01-01T00:00:00");
        Connect connect(core.ui(), core.platform());
        connect.OnConnection(client);
        driver.later([&] {
            const std::string label =
                std::string(first ? "You must first scan your mailbox."
                                  : "Only newer e-mails will be scanned.") +
                " This process may take a while. The deleted and outbox folders will NOT be "
                "scanned.";
            EXPECT_TRUE(driver.isLabelShown(label));
            EXPECT_TRUE(driver.isLabelShown("Please click the start button!"));
            driver.clickButton("Cancel");
        });
        client.button("Check for new e-mails")->clicked();
        connect.OnDisconnection();
    }
}

TEST_F(ConnectTest, opensTheOtherOptionsAndTheHelp) {
    Connect connect(core.ui(), core.platform());
    connect.OnConnection(client);
    client.button("Help")->clicked();
    EXPECT_EQ(core.shell.helpOpened, 1);
    client.button("Other options")->clicked();
    driver.settle();
    EXPECT_TRUE(driver.isWindowShown("Other options"));
    connect.OnDisconnection();
    EXPECT_FALSE(driver.isWindowShown("Other options"));
}

TEST_F(ConnectTest, showsTheProductInTheAboutBox) {
    Connect connect(core.ui(), core.platform());
    connect.OnConnection(client);
    client.button("About")->clicked();
    driver.settle();
    EXPECT_TRUE(driver.isWindowShown("About Pelk"));
    EXPECT_TRUE(driver.isLabelShown("Pelk " PELK_VERSION
                                    "\nA contact management and a connections finder tool."));
    driver.clickButton("OK");
    EXPECT_FALSE(driver.isWindowShown("About Pelk"));
    connect.OnDisconnection();
}

TEST_F(ConnectTest, loadsTheDatabaseOnFirstUseForAQuickStart) {
    Connect connect(core.ui(), core.platform(), Connect::Loading::OnFirstUse);
    connect.OnConnection(client);
    client.button("About")->clicked();
    EXPECT_TRUE(core.files.files.empty());
    client.button("Other options")->clicked();
    EXPECT_TRUE(core.files.fileExists("/data/pelk/pelk.db"));
    const int steps = core.files.steps;
    client.button("Other options")->clicked();
    EXPECT_EQ(core.files.steps, steps) << "loaded once";
    connect.OnDisconnection();
}

TEST_F(ConnectTest, reportsHowLoadingEnded) {
    core.files.files["/data/pelk/pelk.db"] = "no database";
    core.dialogs.expectMessage(
        "The database file /data/pelk/pelk.db cannot be used. It does not begin as a database file "
        "does. It has been kept as /data/pelk/pelk.db.damaged, and Pelk goes on with an empty "
        "database.");
    const Connect empty(core.ui(), core.platform());
    core.shell.folder.reset();
    core.dialogs.expectAllShown();
    core.dialogs.expectMessage("Serious error, cannot access the application data directory !");
    const Connect none(core.ui(), core.platform());
}

TEST_F(ConnectTest, goesOnWithoutAnUnreadableDatabase) {
    saveDatabaseScannedAt("2020-01-01T00:00:00");
    const std::string before = core.files.files["/data/pelk/pelk.db"];
    core.files.readsFail = true;
    core.dialogs.expectMessage("/data/pelk/pelk.db cannot be read.");
    Connect connect(core.ui(), core.platform());
    connect.OnConnection(client);
    EXPECT_THROW(client.button("View your community")->clicked(), Error);
    EXPECT_THROW(client.button("Check for new e-mails")->clicked(), Error);
    connect.OnDisconnection();
    EXPECT_EQ(core.files.files["/data/pelk/pelk.db"], before);
}

}  // namespace
}  // namespace pelk
