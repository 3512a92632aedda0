#include "db/storage.h"

#include "db/damaged_data.h"
#include "db/database_cipher.h"
#include "tests/support/core_platform.h"
#include "tests/support/message_of.h"

namespace pelk {
namespace {

constexpr const char* kFile = "/data/pelk/pelk.db";
const std::string kBackup = std::string(kFile) + ".bak";

class StorageTest : public ::testing::Test {
 protected:
    CorePlatform core;
    MemoryFiles& files = core.files;
    Storage& storage = core.storage();

    /// A saved database of one contact, whose file holds `saved`.
    std::unique_ptr<Database> saveOne() {
        std::unique_ptr<Database> database = storage.loadDatabase().database;
        database->addContact("Ann", "ann@a.example");
        storage.saveDatabase(*database);
        saved = files.files[kFile];
        return database;
    }
    std::string saved;

    /// Runs `act` on these files with each of its steps failing in turn, and `check` afterwards,
    /// until one run succeeds. Returns how many failed.
    int failAtEachStep(const std::map<std::string, std::string>& before,
                       const std::function<void()>& act,
                       const std::function<void(bool failed)>& check) {
        for (int step = 1;; ++step) {
            SCOPED_TRACE(step);
            files.files = before;
            files.failAt = files.steps + step;
            const bool failed = messageOf(act) != "";
            files.failAt = 0;
            check(failed);
            if (!failed || HasFatalFailure())
                return step - 1;
        }
    }
};

TEST_F(StorageTest, createsFolderAndFileAtTheFirstStart) {
    const std::unique_ptr<Database> database = storage.loadDatabase().database;
    ASSERT_TRUE(database);
    EXPECT_EQ(database->date(), "1970-01-01T00:00:00");
    EXPECT_TRUE(files.folderExists("/data/pelk"));
    ASSERT_TRUE(files.fileExists(kFile));
    EXPECT_EQ(files.files.size(), 1U);
    EXPECT_TRUE(files.files[kFile].ends_with("\r\n"));
    EXPECT_EQ(files.files[kFile].find("pelkDB"), std::string::npos);
}

TEST_F(StorageTest, savesLoadsAndSavesTheSameBytes) {
    const std::unique_ptr<Database> database = saveOne();
    const std::unique_ptr<Database> loaded = storage.loadDatabase().database;
    EXPECT_EQ(loaded->xml(), database->xml());
    storage.saveDatabase(*loaded);
    EXPECT_EQ(files.files[kFile], saved);
    storage.exportDatabase(*loaded, "/copy.db");
    EXPECT_EQ(files.files["/copy.db"], saved);
    EXPECT_EQ(storage.importDatabase("/copy.db")->xml(), database->xml());
    files.readsFail = true;
    EXPECT_THROW(storage.loadDatabase(), Error);
    EXPECT_EQ(files.files[kFile], saved) << "nothing is written over a file that cannot be read";
}

/// A database as the Linux program wrote it.
constexpr const char* kForeignFile =
    "PELK1:V/zb/OW16UUwFYa/VHiBlOoUacIDSCKVk0vlnse7F9luLN8f+V5uNbUkPiop05c+zpcT7H8A"
    "ZXgdlepkWDot8AqoYsQXcEu5KWWpta6o0bYLp4JBBgfC9L29Fes2uH3kgnN4aTYzsUpWuumaaevTWD"
    "oFcyiTkId5HkyLyFWh56HjLjMGgoyw3r7lEd1Xh5JmPxszqkIH77x7fh7mqPirarz3hud0EYzS4vP3"
    "OM0tAqbq6kcBVvvhm6y9MhXYKZveRH/yDsuRK+yIwrWZ0jDJo8rQQ5sVFNmTQ9NdBdlzTh6/7Kkn70"
    "pNzqTKPa4GmkcgwkLGkw4L2HeNTt3WnxjNW+ETNwD0YLQrOxm2Ro689lW3Kd4B+6ZU4Rut7+942OUQ"
    "ohqSVGVvtBMBFnb/t1gzgReHTa4PJHBBqAgr006QTIeaR8v75wIzQIubkVs1F5E+hJ6X8liK29btGe"
    "U4vek11zjitioePNDhYKXzPdVaIOPRGexr8elLZNbMfLGszXPuwWZuLdRsOMPbLI78DJ5noxyoxuz1"
    "L8sX2GXIPj+D9fjIZM3W10Z9RhfV0LbpPZT4d1SLTp3+oTHtWAuRrL0OBMCr6K3/WA=="
    "\r\n";

TEST_F(StorageTest, opensAFileOfAnotherPlatformAndWritesTheSameBytes) {
    files.folders.insert("/data/pelk");
    files.files[kFile] = kForeignFile;
    const std::unique_ptr<Database> database = storage.loadDatabase().database;
    EXPECT_EQ(database->contact(1)->name, "Zoë \"Ω\" 李 & <Co>");
    storage.saveDatabase(*database);
    EXPECT_EQ(files.files[kFile], kForeignFile);
}

TEST_F(StorageTest, aFailureOfAnyStepOfASaveLeavesAFileThatLoads) {
    const std::unique_ptr<Database> database = saveOne();
    database->addContact("Bob", "bob@b.example");
    const int failures = failAtEachStep(
        {{kFile, saved}}, [&] { storage.saveDatabase(*database); },
        [&](bool failed) {
            ASSERT_EQ(storage.loadDatabase().database->contactCount(), failed ? 1U : 2U);
            EXPECT_EQ(files.files.size(), 1U) << "a file is left behind";
        });
    EXPECT_EQ(failures, 7) << "create, write thrice, flush, close, replace";
}

TEST_F(StorageTest, setsADamagedFileAside) {
    saveOne();
    const std::string damaged = "cut short" + saved;
    files.files = {{kFile, damaged}, {std::string(kFile) + ".damaged", "an earlier one"}};
    const OpenedDatabase opened = storage.loadDatabase();
    EXPECT_EQ(opened.notice,
              "The database file /data/pelk/pelk.db cannot be used. It does not begin "
              "as a database file does. It has been kept as "
              "/data/pelk/pelk.db.damaged-2, and Pelk goes on with an empty database.");
    EXPECT_EQ(opened.database->contactCount(), 0U);
    EXPECT_EQ(files.files[std::string(kFile) + ".damaged-2"], damaged);
    EXPECT_EQ(files.files[std::string(kFile) + ".damaged"], "an earlier one");
}

/// A library that encrypts, and then fails.
class FailingCrypto : public Crypto {
 public:
    std::string hmacSha256(std::string_view key, std::string_view text) const override {
        return crypto_->hmacSha256(key, text);
    }
    std::string seal(std::string_view key, std::string_view nonce, std::string_view header,
                     std::string plain) const override {
        return crypto_->seal(key, nonce, header, std::move(plain));
    }
    std::optional<std::string> open(std::string_view, std::string_view, std::string_view,
                                    std::string) const override {
        throw Error("The library failed.");
    }
    std::string base64(std::string_view bytes) const override { return crypto_->base64(bytes); }
    std::optional<std::string> fromBase64(std::string_view text) const override {
        return crypto_->fromBase64(text);
    }

 private:
    const std::unique_ptr<Crypto> crypto_ = makeCrypto();
};

/// Failures around a sound database leave it in its place and create no other file.
TEST_F(StorageTest, changesNothingWhenOnlyItsSurroundingsFail) {
    saveOne();
    const std::map<std::string, std::string> before = files.files;
    const auto expectFailure = [&](const Platform& platform) {
        for (const auto load :
             {&Storage::loadDatabase, &Storage::openDatabase, &Storage::readDatabase})
            EXPECT_ANY_THROW((Storage(platform).*load)());
        EXPECT_EQ(files.files, before);
    };
    const Platform& platform = core.platform();
    const auto expectFailureOfXml = [&](auto fault) {
        expectFailure({platform.files, platform.shell, platform.clock, platform.language,
                       platform.crypto,
                       [fault]() -> std::unique_ptr<XmlDocument> { throw fault; }});
    };
    expectFailureOfXml(Error("The system has no XML library."));
    expectFailureOfXml(std::bad_alloc());
    const FailingCrypto crypto;
    expectFailure({platform.files, platform.shell, platform.clock, platform.language, crypto,
                   makeXmlDocument});
    files.lookUpsFail = true;
    expectFailure(platform);
    EXPECT_THROW(storage.keepBackup(), Error);
    files.lookUpsFail = false;
    files.memoryFails = true;
    const std::unique_ptr<Database> database = storage.readDatabase().database;
    for (int step = 1; step <= 7; ++step) {
        files.failAt = files.steps + step;
        EXPECT_THROW(storage.saveDatabase(*database), std::bad_alloc) << step;
        EXPECT_EQ(files.files, before) << "step " << step << " left a file behind";
    }
}

TEST_F(StorageTest, tidiesUpAfterAProgramThatWasEndedInASave) {
    saveOne();
    const std::string left = std::string(kFile) + ".new-0123456789abcdef";
    files.files[left] = files.files["/data/pelk/report.new-1"] = "half";
    storage.readDatabase();
    EXPECT_TRUE(files.files.contains(left)) << "it may be that of a program at work";
    storage.openDatabase();
    EXPECT_EQ(files.files.size(), 2U);
    EXPECT_FALSE(files.files.contains(left));
}

TEST_F(StorageTest, createsAndRenamesNothingForWhoeverReads) {
    EXPECT_EQ(storage.readDatabase().database->contactCount(), 0U);
    EXPECT_EQ(storage.openDatabase().database->date(), "1970-01-01T00:00:00");
    EXPECT_TRUE(files.folders.empty() && files.files.empty());
    files.files[kFile] = "no database";
    EXPECT_EQ(messageOf([&] { storage.readDatabase(); }),
              "The file /data/pelk/pelk.db cannot be used. It does not begin as a database file "
              "does.");
    EXPECT_EQ(files.files.size(), 1U);
}

TEST_F(StorageTest, tellsWhenThereIsNoDataFolder) {
    const std::unique_ptr<Database> database = saveOne();
    core.shell.folder.reset();
    const std::string message = "Serious error, cannot access the application data directory !";
    files.steps = 0;
    EXPECT_EQ(messageOf([&] { storage.loadDatabase(); }), message);
    EXPECT_EQ(messageOf([&] { storage.saveDatabase(*database); }), message);
    EXPECT_EQ(files.steps, 0);
}

TEST_F(StorageTest, keepsACopyFromBeforeTheFirstLoss) {
    storage.keepBackup();
    EXPECT_TRUE(files.files.empty()) << "there was nothing to keep";
    const std::unique_ptr<Database> database = saveOne();
    storage.keepBackup();
    database->removeContacts({1});
    storage.saveDatabase(*database);
    storage.keepBackup();
    EXPECT_EQ(files.files[kBackup], saved);
    EXPECT_NE(files.files[kFile], saved);
}

TEST_F(StorageTest, keepsThreeCopiesAndLosesNoneToAFailure) {
    const auto keep = [&](const std::string& content) {
        files.files[kFile] = content;
        Storage(core.platform()).keepBackup();
    };
    for (const char* content : {"1", "2", "2", "3", "4", "4"})
        keep(content);
    const std::map<std::string, std::string> before = {
        {kFile, "4"}, {kBackup, "4"}, {kBackup + "-2", "3"}, {kBackup + "-3", "2"}};
    EXPECT_EQ(files.files, before);
    const std::map<std::string, std::string> after = {
        {kFile, "5"}, {kBackup, "5"}, {kBackup + "-2", "4"}, {kBackup + "-3", "3"}};
    const int failures = failAtEachStep(
        before, [&] { keep("5"); },
        [&](bool failed) {
            EXPECT_EQ(files.files[kBackup], failed ? "4" : "5");
            keep("5");
            EXPECT_EQ(files.files, after);
        });
    EXPECT_EQ(failures, 15);
}

TEST_F(StorageTest, keepsTheFileThatAnotherDatabaseReplaces) {
    const std::unique_ptr<Database> database = saveOne();
    database->addContact("Bob", "bob@b.example");
    EXPECT_EQ(files.files[storage.replaceDatabase(*database)], saved) << "the old file is kept";
    EXPECT_EQ(storage.loadDatabase().database->contactCount(), 2U);
}

TEST_F(StorageTest, keepsSealedDocumentsBesideTheDatabase) {
    EXPECT_EQ(storage.readBeside("stores.db"), std::nullopt);
    EXPECT_NO_THROW(storage.removeBeside("stores.db"));
    EXPECT_TRUE(files.folders.empty()) << "reading creates nothing";
    storage.writeBeside("stores.db", "a secret");
    std::string& content = files.files["/data/pelk/stores.db"];
    EXPECT_EQ(content.find("secret"), std::string::npos);
    EXPECT_EQ(storage.readBeside("stores.db"), "a secret");
    content[20] ^= 1;
    EXPECT_THROW(storage.readBeside("stores.db"), DamagedData);
    files.readsFail = true;
    EXPECT_EQ(messageOf([&] { storage.readBeside("stores.db"); }),
              "/data/pelk/stores.db cannot be read.");
    storage.removeBeside("stores.db");
    EXPECT_TRUE(files.files.empty());
}

TEST_F(StorageTest, refusesAForeignImportAndNamesIt) {
    for (const char* content : {"", "PELK1:", "PELK1:AAAA", "<pelkDB/>"}) {
        files.files["/in.db"] = content;
        const std::string message = messageOf([&] { storage.importDatabase("/in.db"); });
        EXPECT_NE(message.find("/in.db"), std::string::npos) << content;
    }
}

class DatabaseCipherTest : public ::testing::Test {
 protected:
    const std::unique_ptr<Crypto> crypto = makeCrypto();
    DatabaseCipher cipher{*crypto};

    void SetUp() override { cipher.setKey("TPPGHYQXKZPBQIVNHATUGWMSWK53927FPYTD"); }
    std::string encrypt(const std::string& plain) {
        std::string text;
        cipher.encrypt(plain, [&text](std::string_view piece) { text += piece; });
        return text;
    }
};

TEST_F(DatabaseCipherTest, derivesTheNonceFromAllOfALongText) {
    std::string plain;
    for (int i = 0; i < 368050; ++i)
        plain += std::to_string(i);
    const std::string text = encrypt(plain);
    EXPECT_EQ(text.substr(0, 22), "PELK1:J1m+Gyy/mBxbdgFE");
    EXPECT_EQ(cipher.decrypt(text), plain);
}

TEST_F(DatabaseCipherTest, writesTheSameBytesOnEveryPlatformAndDetectsAChangeOfAnyByte) {
    EXPECT_EQ(encrypt("<pelkDB/>"), "PELK1:sEhkB/v+nHc6t0BYSN7A1dtkJjqUSdF5DQlyXyvpcAhZ8BoqUA==");
    // Padded by two characters, by one and by none.
    for (const std::string plain : {"umlauts: äöü", "umlauts: äöü.", "umlauts: äöüß"}) {
        const std::string text = encrypt(plain);
        EXPECT_EQ(cipher.decrypt(text + "\r\n"), plain);
        for (std::size_t at = 0; at < text.size(); ++at) {
            const char next = static_cast<char>(text[at] + 1);
            for (const char other : {'A', 'B', '=', ' ', '\n', '\0', '\xFF', next}) {
                std::string changed = text;
                changed[at] = other;
                if (changed != text) {
                    EXPECT_THROW(cipher.decrypt(changed), Error) << at;
                }
            }
            EXPECT_THROW(cipher.decrypt(text.substr(0, at)), Error) << at;
            EXPECT_THROW(cipher.decrypt(std::string(text).insert(at, 4, ' ')), Error) << at;
        }
        EXPECT_THROW(cipher.decrypt(text + "    "), Error);
        EXPECT_THROW(cipher.decrypt(text + "AAAA"), Error);
    }
}

}  // namespace
}  // namespace pelk
