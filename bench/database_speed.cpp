// Measures how long the largest database takes to open and to save. Usage: database_speed FOLDER,
// which will hold a database.

#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>

#include "bench/measure.h"
#include "bench/opening.h"

namespace pelk {
namespace {

void writeAndFlush(const std::string& path, const std::string& content) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (::write(file, content.data(), content.size()) != static_cast<ssize_t>(content.size()) ||
        ::fsync(file) != 0)
        std::exit(1);
    ::close(file);
}

/// Waits for the system to finish the deferred work of a save. Spins, so that the processor keeps
/// its clock rate as it does after a scan or a command.
void settle() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(100);
    while (std::chrono::steady_clock::now() < end) {
    }
}

void compareOpening(LargeStore& store) {
    std::unique_ptr<Database> database = store.storage.loadDatabase().database;
    const BareOpening bare(database->xml());
    const auto times = medians(9, {{[&] { database = store.storage.loadDatabase().database; },
                                    [&] {
                                        database.reset();
                                        giveMemoryBack();
                                    }},
                                   {[&] { bare.run(); }, giveMemoryBack}});
    print({"Opening 32,767 contacts and 200,000 relations, ready for look-ups", "warm", times[0],
           "decrypting and pugixml alone", times[1], "ms", 2.5});
}

void compareSaving(LargeStore& store) {
    const auto database = store.storage.loadDatabase().database;
    const std::string content = store.platform.files.readWholeFile(store.path);
    const std::string copy = store.path + ".copy";
    const auto times = medians(9, {{[&] { store.storage.saveDatabase(*database); },
                                    [&] {
                                        database->addMailBetween(1, 2);
                                        settle();
                                    }},
                                   {[&] { writeAndFlush(copy, content); }, settle}});
    ::unlink(copy.c_str());
    print({"Saving it after one change", "warm", times[0], "writing as many bytes with a flush",
           times[1], "ms", 2.5});
}

}  // namespace
}  // namespace pelk

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "database_speed FOLDER\n");
        return 2;
    }
    pelk::LargeStore store(argv[1]);
    pelk::compareOpening(store);
    pelk::compareSaving(store);
}
