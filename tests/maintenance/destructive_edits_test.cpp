// Tests every edit that deletes data: it keeps a backup first, and changes nothing when it reports
// a failure. Also tests that any series of edits leaves a document that can be loaded.

#include <gtest/gtest.h>

#include <ostream>
#include <random>

#include "maintenance/contact_edits.h"
#include "maintenance/database_import.h"
#include "maintenance/database_restore.h"
#include "maintenance/saved_change.h"
#include "maintenance/undo.h"
#include "platform/utf8.h"
#include "tests/support/core_platform.h"
#include "tests/support/message_of.h"

namespace pelk {
namespace {

constexpr const char* kThree =
    "<pelkDB date='2020-01-01T00:00:00' totalMails='0' totalContacts='3'><contacts>"
    "<contact id='1' name='Ann'><emails><email value='ann@a'/></emails></contact>"
    "<contact id='2' name='Bob'><emails><email value='bob@b'/></emails></contact>"
    "<contact id='3' name='Cy'><emails><email value='cy@b'/></emails></contact></contacts>"
    "<relations><relation part1='1' part2='2' weight='3'/></relations></pelkDB>";

struct NoQuestions : ImportGuide {
    bool confirmsMerge(const std::string&) override { return false; }
};

struct Edit {
    const char* name;
    void (*run)(Database&, Storage&);
};

/// Names the edit in test output.
void PrintTo(const Edit& edit, std::ostream* out) {
    *out << edit.name;
}

constexpr Edit kEdits[] = {
    {"delete",
     [](Database& database, Storage& storage) { deleteContacts(database, storage, {2}); }},
    {"merge",
     [](Database& database, Storage& storage) {
         EXPECT_TRUE(mergeContacts(database, storage, {1, 2}, "Both"));
     }},
    {"import",
     [](Database& database, Storage& storage) {
         NoQuestions guide;
         EXPECT_EQ(importDatabaseFile(database, "/in.db", storage, guide).outcome,
                   ImportOutcome::Imported);
     }},
    {"deleteDatabase",
     [](Database& database, Storage& storage) { deleteDatabase(database, storage); }},
    {"restore",
     [](Database& database, Storage& storage) {
         storage.exportDatabase(*emptyDatabase(), "/data/pelk/pelk.db.bak");
         EXPECT_NE(restoreCopy(database, std::move(*storage.readBackup().database), storage), "");
     }},
    {"load",
     [](Database& database, Storage& storage) {
         OpenedDatabase loaded = readDocument(std::string(kEmptiedDocument), storage);
         replaceDatabase(*loaded.database, storage);
         database.replaceContent(std::move(*loaded.database));
     }},
};

class DestructiveEdit : public ::testing::TestWithParam<Edit> {
 protected:
    CorePlatform core;
    std::unique_ptr<Database> database;

    /// Saves a database and a file to import. Returns a storage that has kept no backup yet, like
    /// one in a new process.
    Storage begin() {
        core.files.folders = {"/data/pelk"};
        core.files.files.clear();
        core.files.failAt = 0;
        core.shell.own = std::nullopt;
        database = loadDocument(kThree);
        core.storage().saveDatabase(*database);
        core.storage().exportDatabase(*database, "/in.db");
        return Storage(core.platform());
    }
    std::string file() { return core.files.files["/data/pelk/pelk.db"]; }
    /// Whether a file beside the database has that content.
    bool isKept(const std::string& content) {
        for (const auto& [path, text] : core.files.files)
            if (path.starts_with("/data/pelk/pelk.db.") && text == content)
                return true;
        return false;
    }
};

TEST_P(DestructiveEdit, keepsABackupFirst) {
    Storage storage = begin();
    const std::string before = file();
    GetParam().run(*database, storage);
    EXPECT_NE(file(), before);
    EXPECT_TRUE(isKept(before));
    EXPECT_EQ(core.storage().loadDatabase().database->xml(), database->xml());
}

TEST_P(DestructiveEdit, changesNothingWhenAnyStepFails) {
    for (int step = 1;; ++step) {
        Storage storage = begin();
        const std::string before = file();
        core.files.failAt = core.files.steps + step;
        if (messageOf([&] { GetParam().run(*database, storage); }) == "")
            break;
        ASSERT_EQ(file(), before) << "step " << step;
        ASSERT_TRUE(isKept(before) || database->xml() == loadDocument(kThree)->xml())
            << "changed without a backup, step " << step;
        ASSERT_LT(step, 40);
    }
}

TEST_P(DestructiveEdit, isUndoneAndRedoneToTheByte) {
    Storage storage = begin();
    const std::string before = file();
    GetParam().run(*database, storage);
    const std::string after = file();
    // A command that loads a document ends then.
    if (database->undoName().empty())
        return;
    EXPECT_TRUE(undoStep(*database, storage));
    EXPECT_EQ(file(), before);
    EXPECT_TRUE(redoStep(*database, storage));
    EXPECT_EQ(file(), after);
    EXPECT_FALSE(redoStep(*database, storage));
}

INSTANTIATE_TEST_SUITE_P(Edits, DestructiveEdit, ::testing::ValuesIn(kEdits),
                         [](const auto& edit) { return std::string(edit.param.name); });

TEST(ContactEdits, cleanNamesAndRefuseEmptyOnes) {
    CorePlatform core;
    core.files.folders.insert("/data/pelk");
    const std::unique_ptr<Database> database = loadDocument(kThree);
    renameContact(*database, core.storage(), 1, "A\x1b[1mnn\xff");
    EXPECT_EQ(database->nameOf(1), "A [1mnn\xEF\xBF\xBD");
    mergeContacts(*database, core.storage(), {2, 3}, "B\tC");
    EXPECT_EQ(database->nameOf(2), "B C");
    EXPECT_THROW(renameContact(*database, core.storage(), 1, ""), Error);
    EXPECT_THROW(mergeContacts(*database, core.storage(), {1, 2}, ""), Error);
    EXPECT_EQ(core.storage().loadDatabase().database->xml(), database->xml());
    // A refused edit overwrites no earlier copy.
    Storage next(core.platform());
    core.files.files["/data/pelk/pelk.db.bak"] = "earlier";
    EXPECT_FALSE(mergeContacts(*database, next, {1, 1}, "Nobody"));
    EXPECT_EQ(core.files.files["/data/pelk/pelk.db.bak"], "earlier");
}

TEST(ContactEdits, stayInMemoryUntilASaveSucceeds) {
    CorePlatform core;
    core.files.folders.insert("/data/pelk");
    const std::unique_ptr<Database> database = loadDocument(kThree);
    const auto rename = [&] { renameContact(*database, core.storage(), 1, "Ann Jones"); };
    core.files.failAt = core.files.steps + 2;
    EXPECT_EQ(messageOf(rename), "/data/pelk/pelk.db cannot be written.");
    core.shell.folder.reset();
    core.dialogs.expectMessage("Serious error, cannot access the application data directory !");
    tellIfUnsaved(core.dialogs, rename);
    EXPECT_EQ(database->nameOf(1), "Ann Jones");
    core.shell.folder = "/data";
    EXPECT_EQ(messageOf(rename), "");
    EXPECT_EQ(core.storage().loadDatabase().database->nameOf(1), "Ann Jones");
}

/// A random text of what names and addresses may contain.
std::string oddText(std::mt19937& random) {
    constexpr const char* pieces[] = {"a",    "'",    "\"", "<b>",      "&",
                                      "]]>",  "\t\n", "\r", "\xC2\x85", "\xE2\x80\xAE",
                                      "\xFF", "\x01", "İ",  "ſ",        "\xF0\x9F\x98\x80",
                                      "ﬁ"};
    std::string text;
    for (std::size_t count = random() % 4; count != 0; --count)
        text += pieces[random() % std::size(pieces)];
    return text;
}

void addRandomRelation(Database& database, std::mt19937& random) {
    const std::string address = cleanText(oddText(random)) + "@x";
    if (database.ownerOf(address) == 0)
        database.addContact(cleanText(oddText(random)), address);
    const auto anyone = [&] { return 1 + static_cast<int>(random() % database.totalContacts()); };
    const int a = anyone();
    const int b = anyone();
    if (database.contact(a) && database.contact(b) && a != b)
        database.addRelationWeight(a, b, static_cast<int>(random() % 3));
}

TEST(ContactEdits, leaveADocumentThatLoadsUnchanged) {
    CorePlatform core;
    core.files.folders.insert({"/data/pelk", "/addin"});
    Storage& storage = core.storage();
    NoQuestions guide;
    std::mt19937 random(1);
    for (int history = 0; history < 15; ++history) {
        const std::unique_ptr<Database> database = emptyDatabase();
        const std::unique_ptr<Database> other = emptyDatabase();
        const auto id = [&random] { return 1 + static_cast<int>(random() % 12); };
        for (int step = 0; step < 60; ++step)
            switch (random() % 7) {
                case 0:
                    renameContact(*database, storage, id(), oddText(random) + "x");
                    break;
                case 1:
                    mergeContacts(*database, storage, {id(), id(), id()}, oddText(random) + "x");
                    break;
                case 2:
                    deleteContacts(*database, storage, {id()});
                    break;
                case 3:
                    storage.exportDatabase(*other, "/in.db");
                    EXPECT_EQ(importDatabaseFile(*database, "/in.db", storage, guide).fault, "");
                    break;
                default:
                    addRandomRelation(*database, random);
                    addRandomRelation(*other, random);
            }
        const OpenedDatabase loaded = readDocument(database->xml(), storage);
        ASSERT_EQ(loaded.database->xml(), database->xml());
        ASSERT_FALSE(loaded.notice);
    }
}

}  // namespace
}  // namespace pelk
