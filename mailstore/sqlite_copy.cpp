#include "mailstore/sqlite_copy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "mailstore/mail_file.h"
#include "mailstore/temporary_file.h"
#include "platform/error.h"

namespace pelk {
namespace {

constexpr int kAttempts = 5;
constexpr std::size_t kBlockSize = 256UL << 10;
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

struct CloseDescriptor {
    const int descriptor;
    ~CloseDescriptor() { ::close(descriptor); }
};

void copyFile(const std::string& from, const std::string& to) {
    const std::shared_ptr<MailFile> source = MailFile::open(from);
    const CloseDescriptor target{
        ::open(to.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600)};
    bool written = target.descriptor >= 0;
    std::vector<char> block(kBlockSize);
    for (std::uint64_t offset = 0, count = 1; written && count > 0; offset += count) {
        count = source->read(offset, block.data(), block.size());
        written = writeAll(target.descriptor, {block.data(), count});
    }
    if (!written)
        throw Error(from + " cannot be copied to " + temporaryDirectory() + ": " +
                    std::generic_category().message(errno) + ".");
}

bool tryCopy(const std::string& path, const std::string& copy) {
    const Generation before(path);
    copyFile(path, copy);
    for (const auto& [ending, header] :
         {std::pair("-wal", &before.wal), std::pair("-journal", &before.journal)}) {
        std::error_code error;
        std::filesystem::remove(copy + ending, error);
        if (!header->empty())
            copyFile(path + ending, copy + ending);
    }
    return Generation(path) == before;
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
