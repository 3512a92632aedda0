#include "mailstore/sqlite_copy.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "mailstore/mail_file.h"
#include "mailstore/temporary_file.h"
#include "platform/error.h"

namespace pelk {
namespace {

constexpr int kAttempts = 5;
// In bytes. The header of a journal has 28, of which 8 count its pages and may change.
constexpr std::size_t kWalHeader = 32;
constexpr std::size_t kJournalNonce = 12;
constexpr std::size_t kJournalHeader = 28;

/// Returns the first bytes of a file, or nothing if it does not exist.
std::string startOfFile(const std::string& path, std::size_t size) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0 && errno == ENOENT)
        return {};
    std::string start(size, '\0');
    start.resize(MailFile::open(path)->read(0, start.data(), start.size()));
    return start;
}

/// What stays the same in the headers while the files of pending changes only grow.
struct Generation {
    std::string wal;
    std::string journal;
    /// The database itself matters only if nothing else can tell that it was changed.
    std::filesystem::file_time_type written;

    explicit Generation(const std::string& path)
        : wal(startOfFile(path + "-wal", kWalHeader)),
          journal(startOfFile(path + "-journal", kJournalHeader)) {
        journal.erase(0, kJournalNonce);
        std::error_code error;
        if (wal.empty() && journal.empty())
            written = std::filesystem::last_write_time(path, error);
    }
    friend bool operator==(const Generation&, const Generation&) = default;
};

/// Returns false if the file is gone.
bool copyFile(const std::string& from, const std::string& to) {
    std::error_code error;
    std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing, error);
    if (error && error != std::errc::no_such_file_or_directory)
        throw Error(from + " cannot be copied to " + temporaryDirectory() + ": " + error.message() +
                    ".");
    return !error;
}

bool tryCopy(const std::string& path, const std::string& copy) {
    const Generation before(path);
    bool complete = copyFile(path, copy);
    for (const auto& [ending, header] :
         {std::pair("-wal", &before.wal), std::pair("-journal", &before.journal)}) {
        std::error_code error;
        std::filesystem::remove(copy + ending, error);
        if (!header->empty())
            complete = copyFile(path + ending, copy + ending) && complete;
    }
    return complete && Generation(path) == before;
}

}  // namespace

bool hasPendingChanges(const std::string& path) {
    return !startOfFile(path + "-wal", 1).empty() || !startOfFile(path + "-journal", 1).empty();
}

void copySqlite(const std::string& path, const std::string& copy) {
    for (int attempt = 0; attempt < kAttempts; ++attempt)
        if (tryCopy(path, copy))
            return;
    throw Error(path +
                " cannot be read: a program is writing to it. Close that program and try again.");
}

}  // namespace pelk
