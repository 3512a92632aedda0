// Tests that each e-mail is counted once, in any store and despite any failure.

#include <random>

#include "scan/scan_notes.h"
#include "scan/scanner.h"
#include "tests/support/core_platform.h"
#include "tests/support/memory_mail.h"

namespace pelk {
namespace {

LocalTime at(int second) {
    return {2026, 11, 20, second / 3600, second / 60 % 60, second % 60};
}

/// A platform, mail in stores with places, and the database that counts it.
class Scene {
 public:
    Scene() { setTime(1000); }

    CorePlatform core;
    MemoryMailClient client;
    std::unique_ptr<Database> database = core.storage().loadDatabase().database;
    FolderLog log;
    int mails = 0;

    void setTime(int second) { core.clock.time = at(second); }
    /// Creates another e-mail, from a new sender.
    MemoryItem next(int second) {
        ++mails;
        MemoryItem item = mail("p" + std::to_string(mails) + "@x", {"b@x"}, at(second));
        item.print = static_cast<std::uint64_t>(mails) << 40;
        item.id = std::to_string(mails);
        return item;
    }
    ScanOutcome scan(const ScanOptions& options = {}) { return scanWith(log, options); }
    ScanOutcome scanWith(ScanProgress& progress, const ScanOptions& options = {}) {
        return scanAndSave(*database, storage(), core.platform(), *client.session(), progress,
                           options, history_ ? &*history_ : nullptr);
    }
    /// Lets the scans count into a history, too.
    void keepHistory() { history_.emplace(storage(), core.platform()); }
    /// Loads the database as a new process does.
    void restart() {
        const bool keepsHistory = history_.has_value();
        history_.reset();
        storage_.emplace(core.platform());
        if (keepsHistory)
            keepHistory();
        database = storage_->loadDatabase().database;
    }
    Storage& storage() { return storage_ ? *storage_ : core.storage(); }
    /// How often each e-mail has been counted, one digit each.
    std::string times() const {
        std::string all;
        for (int number = 1; number <= mails; ++number) {
            const int id = database->contactIdByAddress("p" + std::to_string(number) + "@x");
            const std::optional<Relation> relation =
                database->relationOfPair(id, database->contactIdByAddress("b@x"));
            all += std::to_string(id != 0 && relation ? roundToInteger(relation->weight) : 0);
        }
        return all;
    }

    /// The same of the history.
    std::string timesInHistory() {
        std::string all;
        const std::string to = "b@x";
        for (int number = 1; number <= mails; ++number) {
            const std::string from = "p" + std::to_string(number) + "@x";
            all += std::to_string(history_->history().between({&from, 1}, {&to, 1}).sent());
        }
        return all;
    }

 private:
    std::optional<Storage> storage_;
    std::optional<HistoryFile> history_;
};

MemoryFolder folderAt(const std::string& place, std::vector<MemoryItem> items,
                      std::vector<MemoryFolder> folders = {}) {
    MemoryFolder folder{place.substr(place.rfind('/') + 1), std::move(items), std::move(folders)};
    folder.place = place;
    return folder;
}

using Notes = std::vector<std::string>;

TEST(StoreScan, countsAllOfAStoreThatAppearsLater) {
    Scene scene;
    scene.client.stores = {folderAt("/one", {scene.next(10)})};
    EXPECT_EQ(scanNotes(scene.scan()), Notes());
    scene.setTime(2000);
    scene.client.stores = {folderAt("/one2", {scene.next(20)}),
                           {"No place", {scene.next(30), scene.next(1500)}, {}}};
    EXPECT_EQ(scanNotes(scene.scan()), Notes{"one2: counted for the first time"});
    EXPECT_EQ(scene.times(), "1101") << "the third is older than the database's date";
    scene.restart();
    EXPECT_EQ(scene.scan().mails, 0);
    EXPECT_EQ(scene.database->date(), formatStamp(at(2000)));
}

TEST(StoreScan, appliesAnOlderDatabasesDateToTheStoresOfItsFirstScan) {
    Scene scene;
    scene.database->setDate(formatStamp(at(500)));
    scene.client.stores = {folderAt("/one", {scene.next(400), scene.next(600)})};
    EXPECT_EQ(scanNotes(scene.scan()), Notes());
    scene.client.stores.push_back(folderAt("/two", {scene.next(400)}));
    EXPECT_EQ(scanNotes(scene.scan()), Notes{"two: counted for the first time"});
    EXPECT_EQ(scene.times(), "011");
}

TEST(StoreScan, countsNothingTwiceAfterTheReturnOfADeletedDatabase) {
    Scene scene;
    scene.client.stores = {folderAt("/one", {scene.next(10)})};
    scene.scan();
    const std::string before = scene.database->xml();
    scene.database->replaceContent(std::move(*emptyDatabase()));
    // More scans than there are states in the file.
    for (int second = 2000; second < 9000; second += 1000) {
        scene.setTime(second);
        scene.scan();
    }
    EXPECT_EQ(scene.times(), "1");
    scene.database->replaceContent(std::move(*loadDocument(before)));
    scene.client.stores[0].items.push_back(scene.next(1500));
    scene.scan();
    EXPECT_EQ(scene.times(), "11");
}

TEST(StoreScan, recognisesTheSameMailAtANewPlace) {
    Scene scene;
    std::vector<MemoryItem> items;
    for (int second = 0; second < 20; ++second)
        items.push_back(scene.next(second));
    scene.client.stores = {folderAt("/old/mail", items, {folderAt("x/In", {scene.next(30)})})};
    scene.scan();
    scene.setTime(2000);
    items.erase(items.begin(), items.begin() + 8);
    items.push_back(scene.next(1500));
    scene.client.stores = {folderAt("/new/mail", items, scene.client.stores[0].folders)};
    EXPECT_EQ(scanNotes(scene.scan()),
              Notes{"mail: recognised, counted since " + formatStamp(at(1000))});
    EXPECT_EQ(scene.times(), std::string(22, '1'));
    scene.client.stores = {folderAt("/copy", items), folderAt("/other", {scene.next(3)})};
    scene.client.stores.push_back(folderAt("/copy of other", scene.client.stores[1].items));
    scene.scan();
    EXPECT_EQ(scene.times(), std::string(23, '1'));
}

TEST(StoreScan, reportsThatUnreadableMailIsCountedLater) {
    Scene scene;
    scene.client.stores = {folderAt("/mail", {scene.next(10), scene.next(20)})};
    scene.client.stores[0].items[0].refuses = true;
    EXPECT_EQ(scanWarnings(scene.scan()),
              Notes{"Something could not be read: The item cannot be opened. "
                    "Later scans count the e-mails that could not be read."});
    EXPECT_EQ(scene.times(), "01");
}

TEST(StoreScan, countsMailDatedInTheFutureOnce) {
    Scene scene;
    scene.client.stores = {folderAt("/mail", {scene.next(900), scene.next(5000)})};
    MemoryFolder& store = scene.client.stores[0];
    store.items[0].isDatedAhead = true;
    for (const int second : {1100, 1200, 1300, 6000, 7000}) {
        scene.scan();
        scene.restart();
        if (second != 1200)
            store.items[0].created = at(second);
        scene.setTime(second);
    }
    EXPECT_EQ(scene.times(), "11");
}

TEST(StoreScan, countsFromAGivenDate) {
    Scene scene;
    scene.client.stores = {folderAt("/mail", {scene.next(10), scene.next(20), scene.next(5000)})};
    scene.scan();
    scene.scan({false, formatStamp(at(10))});
    EXPECT_EQ(scene.times(), "121") << "what was counted ahead is not counted again";
    scene.scan({false, "2026-11-20"});
    EXPECT_EQ(scene.times(), "231");
    EXPECT_EQ(scene.scan().mails, 0);
}

TEST(StoreScan, followsARestoredDatabase) {
    Scene scene;
    scene.client.stores = {folderAt("/mail", {scene.next(10), scene.next(9000)})};
    scene.scan();
    const std::string before = scene.core.files.files["/data/pelk/pelk.db"];
    scene.client.stores.push_back(folderAt("/more", {scene.next(15)}));
    for (int second = 1500; second < 6000; second += 500) {
        scene.client.stores[0].items.push_back(scene.next(second - 100));
        scene.setTime(second);
        scene.scan();
    }
    EXPECT_EQ(scene.times(), std::string(12, '1'));
    scene.core.files.files["/data/pelk/pelk.db"] = before;
    scene.restart();
    EXPECT_EQ(scene.scan().mails, 10);
    EXPECT_EQ(scene.times(), std::string(12, '1'));
    const std::string after = scene.core.files.files["/data/pelk/pelk.db"];
    scene.database = emptyDatabase();
    scene.setTime(7000);
    scene.scan();
    EXPECT_EQ(scene.times(), std::string(12, '1')) << "an empty database forgets all";
    scene.core.files.files["/data/pelk/pelk.db"] = after;
    scene.restart();
    EXPECT_EQ(scene.scan().mails, 0);
}

TEST(StoreScan, usesTheDatabasesDateWhenTheStoresFileIsDamaged) {
    Scene scene;
    scene.client.stores = {folderAt("/mail", {scene.next(10)})};
    scene.scan();
    MemoryFiles& files = scene.core.files;
    files.files["/data/pelk/pelk-stores.db"][30] ^= 1;
    scene.client.stores[0].items.push_back(scene.next(1500));
    scene.setTime(2000);
    scene.scan();
    EXPECT_EQ(scene.scan().mails, 0);
    const std::string notice =
        "The file /data/pelk/pelk-stores.db cannot be used. It is damaged, or was made with "
        "another key. It will be replaced; this scan counts the e-mails that came after the last "
        "one, " +
        formatStamp(at(1000)) + ".";
    EXPECT_EQ(scene.log.notices, Notes{notice});
    EXPECT_EQ(scene.times(), "11");
    files.readsFail = true;
    scene.client.stores[0].items.push_back(scene.next(3000));
    EXPECT_THROW(scene.scan(), Error);
    EXPECT_EQ(scene.times(), "110");
}

/// Random deliveries, faults, scans and restarts over two stores: one run of the test below.
class RandomRun : private FolderLog {
 public:
    explicit RandomRun(unsigned seed) : random_(seed) {
        scene.client.stores = {folderAt("/a", {}, {folderAt("x/In", {}, {folderAt("y/Deep", {})})}),
                               folderAt("/b", {}, {folderAt("x/In", {})})};
        scene.keepHistory();
    }

    Scene scene;

    void run() {
        for (int round = 0; round < 12; ++round) {
            for (int number = chance(5); number > 0; --number)
                deliver();
            trouble(one(folders()));
            scanSome();
        }
        for (MemoryFolder* folder : folders())
            heal(*folder);
        scene.core.files.failAt = 0;
        tick();
        scene.scanWith(*this);
    }

 private:
    int chance(int sides) { return static_cast<int>(random_() % static_cast<unsigned>(sides)); }
    template <typename Value>
    Value one(const std::vector<Value>& values) {
        return values[random_() % values.size()];
    }
    void tick() { scene.setTime(++second_); }

    std::vector<MemoryFolder*> folders() {
        MemoryFolder& a = scene.client.stores[0];
        MemoryFolder& b = scene.client.stores[1];
        return {&a, &a.folders[0], &a.folders[0].folders[0], &b, &b.folders[0]};
    }
    void deliver() {
        tick();
        MemoryItem item = scene.next(chance(9) == 0 ? second_ + 200 : second_);
        item.refuses = chance(9) == 0;
        one(folders())->items.push_back(item);
    }
    void trouble(MemoryFolder* folder) {
        heal(*folder);
        folder->refuses = chance(3) == 0;
        folder->refusesFolders = chance(3) == 0;
    }
    static void heal(MemoryFolder& folder) {
        folder.refuses = folder.refusesFolders = false;
        for (MemoryItem& item : folder.items)
            item.refuses = false;
    }
    /// Scans one store, both, or a folder as a store of its own. The disk may fail, and the program
    /// may restart afterwards.
    void scanSome() {
        const std::vector<MemoryFolder> all = scene.client.stores;
        const int which = chance(4);
        if (which == 3)
            scene.client.stores = {
                folderAt("/a/In", all[0].folders[0].items, all[0].folders[0].folders)};
        else if (which != 0)
            scene.client.stores = {all[static_cast<std::size_t>(which) - 1]};
        tick();
        scene.core.files.steps = 0;
        scene.core.files.failAt = chance(3) == 0 ? 1 + chance(14) : 0;
        arrives_ = which == 0;
        try {
            scene.scanWith(*this);
        } catch (const Error&) {
            scene.core.files.failAt = 0;
            if (chance(2) == 0)
                scene.storage().saveDatabase(*scene.database);
        }
        arrives_ = false;
        if (which != 0)
            scene.client.stores = all;
        if (chance(3) == 0)
            scene.restart();
    }

    /// Delivers mail during the scan.
    void itemStarted(int) override {
        if (arrives_ && chance(6) == 0)
            deliver();
    }

    std::mt19937 random_;
    int second_ = 1000;
    bool arrives_ = false;
};

TEST(StoreScan, bearsWithAClockThatIsBehind) {
    Scene scene;
    scene.client.stores = {folderAt("/one", {scene.next(950)})};
    scene.client.stores[0].clockTolerance = 100;
    scene.scan();
    scene.setTime(2000);
    scene.client.stores[0].items.push_back(scene.next(910));
    scene.client.stores[0].items.push_back(scene.next(890));
    EXPECT_EQ(scene.scan().mails, 1);
    scene.setTime(3000);
    scene.scan();
    EXPECT_EQ(scene.times(), "110");
}

TEST(StoreScan, countsEachEmailOnceWhateverHappens) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        RandomRun run(seed);
        run.run();
        ASSERT_EQ(run.scene.times(), std::string(run.scene.times().size(), '1')) << seed;
        ASSERT_EQ(run.scene.timesInHistory(), run.scene.times()) << seed;
    }
}

}  // namespace
}  // namespace pelk
