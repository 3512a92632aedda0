// Tests that the history follows all changes of the database, on disk as in memory, whatever fails.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "history/history_file.h"
#include "maintenance/contact_edits.h"
#include "maintenance/database_export.h"
#include "maintenance/database_import.h"
#include "maintenance/database_restore.h"
#include "maintenance/saved_change.h"
#include "maintenance/undo.h"
#include "scan/scanner.h"
#include "tests/support/core_platform.h"
#include "tests/support/memory_mail.h"
#include "tests/support/message_of.h"

namespace pelk {
namespace {

constexpr const char* kHistory = "/data/pelk/pelk-history.db";

struct NoQuestions : ImportGuide {
    bool confirmsMerge(const std::string&) override { return false; }
};

/// What one process has of the database.
struct Process {
    explicit Process(const Platform& platform)
        : storage(platform),
          history(storage, platform),
          database(storage.loadDatabase().database) {}

    Storage storage;
    HistoryFile history;
    std::unique_ptr<Database> database;
};

/// Mail in one store, and a process.
class World {
 public:
    World() {
        client.stores = {MemoryFolder{"mail", {}, {}}};
        client.stores[0].place = "/mail";
        core.shell.own.reset();
        restart();
    }

    CorePlatform core;
    MemoryMailClient client;
    std::unique_ptr<Process> process;

    Database& database() { return *process->database; }
    Storage& storage() { return process->storage; }
    HistoryFile& file() { return process->history; }
    void restart() {
        process.reset();
        process = std::make_unique<Process>(core.platform());
    }
    void deliver(const std::string& from, const std::vector<std::string>& to, LocalTime sent) {
        core.clock.time = earlier(core.clock.time, -1);
        MemoryItem item = mail(from, to, core.clock.time);
        item.print = ++mails_;
        item.id = std::to_string(mails_);
        item.sent = sent;
        client.stores[0].items.push_back(item);
    }
    void scan(HistoryFile* history) {
        core.clock.time = earlier(core.clock.time, -1);
        FolderLog log;
        scanAndSave(database(), storage(), core.platform(), *client.session(), log, {}, history);
    }
    void scan() { scan(&file()); }
    /// Returns the history on the disk, as a process that only reads finds it.
    History saved() {
        Storage reader(core.platform());
        return HistoryFile(reader, core.platform()).history();
    }
    int idOf(const std::string& address) { return database().ownerOf(address); }

 private:
    std::uint64_t mails_ = 0;
};

const std::vector<std::string> kPeople{"a@x", "b@x", "c@x", "d@x", "e@x", "f@x"};

/// The e-mails that should be in the history, as a plain list.
struct Recount {
    struct Mail {
        std::string from;
        std::string to;
        Day day;
    };
    std::vector<Mail> mails;
    std::map<std::string, std::uint32_t> sent;
    /// How many e-mails of the store have been counted.
    std::size_t seen = 0;

    void add(const MemoryItem& item) {
        ++sent[item.sender.address];
        std::set<std::string> recipients;
        for (const MailPerson& recipient : item.recipients)
            if (recipients.insert(recipient.address).second)
                mails.push_back({item.sender.address, recipient.address, dayOf(*item.sent)});
    }
    void remove(const std::string& address) {
        sent.erase(address);
        std::erase_if(mails, [&address](const Mail& mail) {
            return mail.from == address || mail.to == address;
        });
    }
    History history() const {
        History all;
        for (const Mail& mail : mails)
            all.countMail(mail.from, mail.to, mail.day);
        for (const auto& [address, count] : sent)
            all.record(address).sent = count;
        return all;
    }
};

MemoryFolder otherStore() {
    MemoryFolder store{"other", {}, {}};
    for (int day = 1; day <= 3; ++day) {
        MemoryItem item = mail("a@x", {"b@x", "z@x"});
        item.sent = LocalTime{2001, 5, day};
        store.items.push_back(item);
    }
    return store;
}

/// Writes the database and the history of another user's mail.
void exportOther(CorePlatform& core) {
    World other;
    other.client.stores = {otherStore()};
    other.scan();
    exportDatabaseFile(other.database(), "/other.db", other.storage(), &other.file());
    for (const char* const path : {"/other.db", "/other.db-history"})
        core.files.files[path] = other.core.files.files.at(path);
}

void importOther(World& world) {
    NoQuestions guide;
    importDatabaseFile(world.database(), "/other.db", world.storage(), guide, &world.file());
}

/// A series of random scans and steps.
class RandomSteps {
 public:
    explicit RandomSteps(unsigned seed) : random_(seed) { exportOther(world_.core); }

    void run() {
        for (int turn = 0; turn < 50 && !::testing::Test::HasFailure(); ++turn) {
            const int kind = chance(11);
            SCOPED_TRACE("turn " + std::to_string(turn) + ", kind " + std::to_string(kind));
            act(kind);
            const History expected = now_.history();
            EXPECT_TRUE(world_.file().history() == expected);
            EXPECT_TRUE(world_.saved() == expected);
        }
    }

 private:
    int chance(int sides) { return static_cast<int>(random_() % static_cast<unsigned>(sides)); }
    const std::string& person() { return kPeople[static_cast<std::size_t>(chance(6))]; }

    void act(int kind) {
        const Recount before = now_;
        switch (kind) {
            case 0:
                return note(before, remove());
            case 1:
                return note(before, merge());
            case 2:
                return note(before, import());
            case 3:
                return note(before, chance(2) == 0 ? removeAll() : restore());
            case 4:
            case 5:
                return goBack();
            case 6:
                return note(before, rename());
            case 7:
                return restart();
            default:
                return scan();
        }
    }
    /// Notes a step that the user can undo.
    void note(const Recount& before, bool isStep) {
        if (!isStep)
            return;
        done_.push_back(before);
        undone_.clear();
    }
    void noteBackup() {
        if (!backup_)
            keptBackup_ = now_;
        backup_ = true;
    }
    bool remove() {
        const std::optional<Contact> contact = world_.database().contact(world_.idOf(person()));
        if (!contact)
            return false;
        noteBackup();
        deleteContacts(world_.database(), world_.storage(), {contact->id});
        for (const std::string& address : contact->addresses)
            now_.remove(address);
        return true;
    }
    bool merge() {
        const int one = world_.idOf(person());
        const int other = world_.idOf(person());
        if (one == 0 || other == 0 || one == other)
            return false;
        noteBackup();
        return mergeContacts(world_.database(), world_.storage(), {one, other}, "Both");
    }
    bool import() {
        noteBackup();
        importOther(world_);
        for (const MemoryItem& item : otherStore().items)
            now_.add(item);
        return true;
    }
    bool removeAll() {
        noteBackup();
        deleteDatabase(world_.database(), world_.storage());
        now_ = {};
        return true;
    }
    bool restore() {
        OpenedDatabase copy = world_.storage().readBackup();
        if (!copy.database || !keptBackup_)
            return false;
        restoreCopy(world_.database(), std::move(*copy.database), world_.storage());
        now_ = *keptBackup_;
        return true;
    }
    bool rename() {
        const int id = world_.idOf(person());
        if (id != 0)
            renameContact(world_.database(), world_.storage(), id, std::to_string(random_()));
        return id != 0;
    }
    void goBack() {
        const bool back = chance(3) != 0;
        std::vector<Recount>& from = back ? done_ : undone_;
        EXPECT_EQ(back ? undoStep(world_.database(), world_.storage())
                       : redoStep(world_.database(), world_.storage()),
                  !from.empty());
        if (from.empty())
            return;
        (back ? undone_ : done_).push_back(std::exchange(now_, from.back()));
        from.pop_back();
    }
    void forgetSteps() {
        done_.clear();
        undone_.clear();
    }
    void restart() {
        world_.restart();
        forgetSteps();
        backup_ = false;
    }
    void scan() {
        for (int count = chance(6); count > 0; --count)
            world_.deliver(person(), {person(), person()},
                           {2000 + chance(4), 1 + chance(12), 1 + chance(28)});
        world_.scan();
        const std::vector<MemoryItem>& items = world_.client.stores[0].items;
        for (; now_.seen < items.size(); ++now_.seen)
            now_.add(items[now_.seen]);
        forgetSteps();
    }

    std::mt19937 random_;
    World world_;
    Recount now_;
    std::vector<Recount> done_;
    std::vector<Recount> undone_;
    std::optional<Recount> keptBackup_;
    /// Whether this process has kept a backup.
    bool backup_ = false;
};

TEST(HistoryFile, equalsAPlainRecountAfterAnySteps) {
    for (unsigned seed = 1; seed <= 25 && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomSteps(seed).run();
    }
}

TEST(HistoryFile, comesToAnOldDatabaseWithoutChangingIt) {
    World world;
    Recount recount;
    for (int day = 1; day <= 3; ++day) {
        world.deliver("a@x", {"b@x", "c@x"}, {2001, 5, day});
        world.scan(nullptr);
    }
    world.deliver("b@x", {"a@x"}, {2001, 5, 5});
    world.scan();
    for (const MemoryItem& item : world.client.stores[0].items)
        recount.add(item);
    EXPECT_TRUE(world.saved() == recount.history());
    EXPECT_EQ(world.database().totalMails(), "4");
    EXPECT_EQ(world.database().relationOfPair(1, 2)->weight, 4);
    world.scan(nullptr);
    world.scan();
    EXPECT_TRUE(world.saved() == recount.history());
}

/// What a process finds on the disk.
std::string found(World& world) {
    world.restart();
    std::string all = world.database().xml() + "\n";
    const History& history = world.file().history();
    history.forEachAddress([&](const std::string& address) {
        history.forEachPartner(address, [&](const std::string& partner, const Exchange& exchange) {
            all += address + " " + partner + " " + std::to_string(exchange.sent()) + "\n";
        });
    });
    return all;
}

TEST(HistoryFile, isSavedWithTheDatabaseOrNotAtAll) {
    const std::vector<std::function<void(World&)>> acts{
        [](World& world) { deleteContacts(world.database(), world.storage(), {1}); },
        [](World& world) { deleteDatabase(world.database(), world.storage()); },
        importOther,
        [](World& world) {
            world.deliver("c@x", {"a@x"}, {2001, 5, 5});
            world.scan();
        },
    };
    World world;
    world.deliver("a@x", {"b@x"}, {2001, 5, 5});
    world.scan();
    exportOther(world.core);
    MemoryFiles& files = world.core.files;
    const auto begin = [&, old = files.files, store = world.client.stores[0],
                        time = world.core.clock.time] {
        files.files = old;
        world.client.stores[0] = store;
        world.core.clock.time = time;
        world.restart();
        files.steps = 0;
    };
    const std::string before = found(world);
    for (const auto& act : acts) {
        begin();
        act(world);
        const int steps = files.steps;
        const std::string after = found(world);
        EXPECT_NE(before, after);
        // One step fails, or all further ones as in a crash.
        for (int step = 1; step <= 2 * steps; ++step) {
            SCOPED_TRACE(step);
            begin();
            files.crashes = step > steps;
            files.failAt = files.crashes ? step - steps : step;
            messageOf([&] { act(world); });
            files.failAt = 0;
            const std::string now = found(world);
            EXPECT_TRUE(now == before || now == after) << now;
            EXPECT_EQ(std::count_if(files.files.begin(), files.files.end(),
                                    [](const auto& file) { return isTemporaryName(file.first); }),
                      0);
        }
    }
}

TEST(HistoryFile, setsADamagedFileAside) {
    World world;
    world.deliver("a@x", {"b@x"}, {2001, 5, 5});
    world.scan();
    std::map<std::string, std::string>& files = world.core.files.files;
    files[kHistory][40] ^= 1;
    const std::string damaged = files[kHistory];
    EXPECT_TRUE(world.saved().empty());
    EXPECT_EQ(files[kHistory], damaged) << "a reader renames nothing";
    world.restart();
    EXPECT_TRUE(world.file().notice());
    world.scan();
    EXPECT_EQ(files[std::string(kHistory) + ".damaged"], damaged);
    EXPECT_EQ(world.saved().between(kPeople, kPeople).sent(), 1U);
    EXPECT_FALSE(world.file().notice());
    world.core.files.readsFail = true;
    EXPECT_THROW(world.saved(), Error);
}

TEST(HistoryFile, keepsTheUsersOwnAddresses) {
    World world;
    world.file().setOwnAddresses({"a@x", "b@x"});
    world.deliver("a@x", {"b@x"}, {2001, 5, 5});
    world.scan();
    world.restart();
    EXPECT_EQ(world.file().ownAddresses(), (std::vector<std::string>{"a@x", "b@x"}));
}

TEST(DayOfMail, isThatOfItsDateFieldUnlessItIsImplausible) {
    const LocalTime created{2020, 3, 31, 12, 0, 0};
    EXPECT_EQ(dayOfMail(LocalTime{2019, 1, 2}, created), 20190102);
    EXPECT_EQ(dayOfMail(LocalTime{2020, 4, 1, 12, 0, 0}, created), 20200401);
    EXPECT_EQ(dayOfMail(LocalTime{2020, 4, 1, 12, 0, 1}, created), 20200331);
    EXPECT_EQ(dayOfMail(LocalTime{1989, 12, 31}, created), 20200331);
    EXPECT_EQ(dayOfMail(std::nullopt, created), 20200331);
}

}  // namespace
}  // namespace pelk
