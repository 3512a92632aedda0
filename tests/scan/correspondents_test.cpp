// What a scan learns about people beside their e-mails: who is a list, a robot, the user.

#include "history/correspondent_kind.h"
#include "history/history_file.h"
#include "scan/scanner.h"
#include "tests/support/core_platform.h"
#include "tests/support/memory_mail.h"

namespace pelk {
namespace {

TEST(Correspondents, areKnownAfterAScan) {
    CorePlatform core;
    MemoryMailClient client;
    MemoryItem listed = mail("ann@x", {"list@x", "me@x"});
    listed.automation = {{{"List-Post", "List@x"}}, {}, true, "list", {}};
    MemoryItem news = mail("news@x", {"me@x"});
    news.automation.canUnsubscribe = true;
    MemoryFolder sent{"Sent", {mail("Me@x", {"ann@x"}), mail("me@x", {"bob@x"})}, {}};
    sent.isSentMail = true;
    client.stores = {{"Mail", {listed, news, mail("bob@x", {"old@x"})}, {sent}}};
    client.ownAddresses = {"OLD@x", "unknown@x"};
    const std::unique_ptr<Database> database = core.storage().loadDatabase().database;
    FolderLog log;
    HistoryFile file(core.storage(), core.platform());
    scanAndSave(*database, core.storage(), core.platform(), *client.session(), log, {}, &file);

    Storage storage(core.platform());
    HistoryFile saved(storage, core.platform());
    std::string kinds;
    database->forEachContact([&](const Contact& contact) {
        kinds += std::string(nameOf(kindOfContact(contact, saved.history()).kind)) + " ";
    });
    EXPECT_EQ(kinds, "person list person robot person person ") << "ann list me news bob old";
    EXPECT_EQ(saved.ownAddresses(), (std::vector<std::string>{"me@x", "old@x"}));
    saved.setOwnAddresses({"ann@x"});
    EXPECT_EQ(saved.explainedOwnAddresses(), (std::vector<OwnAddress>{{"ann@x", "set by you"}}));
    saved.setOwnAddresses({});
    EXPECT_EQ(saved.ownAddresses().size(), 2U);
    saved.exportTo("/out");
    EXPECT_EQ(findOwnAddresses(*saved.readExported("/out")).size(), 1U)
        << "a guess, because it may go to somebody else";
}

}  // namespace
}  // namespace pelk
