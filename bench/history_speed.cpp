// Measures what the history costs: in a scan, and when a form opens that shows it. Usage:
// history_speed FOLDER, with the mail that ./bench-all writes there.

#include <cstdio>
#include <memory>
#include <string>

#include "bench/large_database.h"
#include "bench/measure.h"
#include "bench/opening.h"
#include "bench/random.h"
#include "bench/scan_mail.h"
#include "history/history_file.h"
#include "mailstore/mail_store.h"

namespace pelk {
namespace {

/// Scans into a new database and saves it, with a history or without.
void scanAnew(LargeStore& store, const std::string& mbox, bool withHistory) {
    for (const char* const name : {"pelk-stores.db", "pelk-history.db"})
        store.storage.removeBeside(name);
    HistoryFile history(store.storage, store.platform);
    const std::unique_ptr<Database> database = makeEmptyDatabase();
    NoProgress progress;
    scanAndSave(*database, store.storage, store.platform, *openMailSession({mbox}, {}), progress,
                {}, withHistory ? &history : nullptr);
}

void compareScans(LargeStore& store, const std::string& mbox) {
    const auto times = medians(9, {{[&] { scanAnew(store, mbox, true); }, giveMemoryBack},
                                   {[&] { scanAnew(store, mbox, false); }, giveMemoryBack}});
    print({"Scan of 100,000 messages in an mbox, saved with the history", "warm", times[0],
           "without", times[1], "ms", 1.2});
}

/// Saves a history in which each relation of the largest database has e-mails in up to twelve
/// months of twenty years.
void saveLargeHistory(LargeStore& store, const Database& database) {
    Random random;
    History history;
    const auto address = [&database](int id) { return database.contact(id)->addresses.front(); };
    for (const Relation& relation : database.relations()) {
        const int start = 2004 + static_cast<int>(random.below(20));
        for (std::size_t month = 0; month <= random.below(12); ++month) {
            const Day day = dayOf({start + static_cast<int>(random.below(2)),
                                   1 + static_cast<int>(random.below(12)), 15});
            history.countMail(address(relation.part1), address(relation.part2), day);
        }
    }
    HistoryFile file(store.storage, store.platform);
    file.addScan(std::move(history), {}, database.date());
    store.storage.saveDatabase(database);
}

void compareOpening(LargeStore& store) {
    const auto database = store.storage.loadDatabase().database;
    saveLargeHistory(store, *database);
    std::unique_ptr<HistoryFile> file;
    std::unique_ptr<Database> opened;
    const auto times =
        medians(9, {{[&] {
                         file = std::make_unique<HistoryFile>(store.storage, store.platform);
                         file->history();
                     },
                     [&] {
                         file.reset();
                         giveMemoryBack();
                     }},
                    {[&] { opened = store.storage.loadDatabase().database; },
                     [&] {
                         opened.reset();
                         giveMemoryBack();
                     }}});
    print({"Reading the history of 200,000 relations", "warm", times[0],
           "opening the database of these relations", times[1], "ms", 0});
}

}  // namespace
}  // namespace pelk

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "history_speed FOLDER\n");
        return 2;
    }
    const std::string folder = argv[1];
    pelk::LargeStore store(folder + "/database");
    pelk::compareOpening(store);
    pelk::compareScans(store, folder + "/large.mbox");
}
