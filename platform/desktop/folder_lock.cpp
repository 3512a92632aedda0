#include "platform/desktop/folder_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "platform/desktop/uninterrupted.h"
#include "platform/error.h"

namespace pelk {
namespace {

[[noreturn]] void fail(const std::string& folder, const char* what) {
    throw Error(folder + " cannot be " + what + ": " + std::strerror(errno) + ".");
}

/// Takes the lock. Throws `Error` when another program has it.
void lock(int descriptor, const std::string& folder) {
    if (uninterrupted([descriptor] { return ::flock(descriptor, LOCK_EX | LOCK_NB); }) == 0)
        return;
    if (errno == EWOULDBLOCK)
        throw Error("Another Pelk is using the database in " + folder + ". Close it first.");
    // Some network file systems know no locks; there the program works without.
    if (errno != EOPNOTSUPP && errno != ENOSYS && errno != ENOLCK && errno != EINVAL)
        fail(folder, "locked");
}

/// Whether the open folder is still the one at the path: a program that put nothing into it may
/// have removed it before it gave up its lock.
bool standsAt(int descriptor, const std::string& folder) {
    struct stat held {};
    struct stat there {};
    if (::fstat(descriptor, &held) != 0)
        fail(folder, "looked up");
    if (uninterrupted([&] { return ::stat(folder.c_str(), &there); }) != 0) {
        if (errno == ENOENT)
            return false;
        fail(folder, "looked up");
    }
    return held.st_dev == there.st_dev && held.st_ino == there.st_ino;
}

/// Closed again unless the caller keeps it.
class Opened {
 public:
    explicit Opened(const std::string& folder)
        : descriptor_(uninterrupted(
              [&] { return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); })) {
        if (descriptor_ < 0)
            fail(folder, "opened");
    }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    ~Opened() {
        if (descriptor_ >= 0)
            ::close(descriptor_);
    }
    int get() const { return descriptor_; }
    int keep() { return std::exchange(descriptor_, -1); }

 private:
    int descriptor_;
};

}  // namespace

FolderLock::FolderLock(const std::string& folder) {
    while (descriptor_ < 0) {
        made_ = makeFolders(folder);
        Opened opened(folder);
        lock(opened.get(), folder);
        if (standsAt(opened.get(), folder))
            descriptor_ = opened.keep();
    }
}

/// The folders go while the lock is held, so that nobody else has begun to use them.
FolderLock::~FolderLock() {
    removeEmpty(made_);
    ::close(descriptor_);
}

}  // namespace pelk
