#include "platform/desktop/folder_lock.h"

#include <sys/file.h>
#include <sys/stat.h>

#include "platform/desktop/descriptor.h"

namespace pelk {
namespace {

/// Locks the folder. Throws `Error` when another program holds the lock.
void lock(int descriptor, const std::string& folder) {
    if (uninterrupted([descriptor] { return ::flock(descriptor, LOCK_EX | LOCK_NB); }) == 0)
        return;
    if (errno == EWOULDBLOCK)
        throw Error("Another Pelk is using the database in " + folder + ". Close it first.");
    // Some network file systems do not support locks; there the program works without one.
    if (errno != EOPNOTSUPP && errno != ENOSYS && errno != ENOLCK && errno != EINVAL)
        failToBe(folder, "locked");
}

/// Whether the path still leads to the open folder. Another program may have created the folder and
/// removed it, still empty, before it released its lock.
bool standsAt(int descriptor, const std::string& folder) {
    struct stat held {};
    struct stat there {};
    if (::fstat(descriptor, &held) != 0)
        failToBe(folder, "looked up");
    if (uninterrupted([&] { return ::stat(folder.c_str(), &there); }) != 0) {
        if (errno == ENOENT)
            return false;
        failToBe(folder, "looked up");
    }
    return held.st_dev == there.st_dev && held.st_ino == there.st_ino;
}

}  // namespace

FolderLock::FolderLock(const std::string& folder) {
    while (descriptor_ < 0) {
        made_ = makeFolders(folder);
        Descriptor opened = openFile(folder, O_RDONLY | O_DIRECTORY);
        if (opened.get() < 0)
            failToBe(folder, "opened");
        lock(opened.get(), folder);
        if (standsAt(opened.get(), folder))
            descriptor_ = opened.release();
    }
}

/// Removes the folders before it releases the lock, so that no other program has begun to use them.
FolderLock::~FolderLock() {
    removeEmpty(made_);
    ::close(descriptor_);
}

}  // namespace pelk
