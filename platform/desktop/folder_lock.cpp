#include "platform/desktop/folder_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/error.h"

namespace pelk {

FolderLock::FolderLock(const std::string& folder)
    : descriptor_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (descriptor_ < 0)
        throw Error(folder + " cannot be opened: " + std::strerror(errno) + ".");
    if (::flock(descriptor_, LOCK_EX | LOCK_NB) == 0)
        return;
    const bool taken = errno == EWOULDBLOCK;
    ::close(descriptor_);
    // Some network file systems know no locks; there the program works without.
    descriptor_ = -1;
    if (taken)
        throw Error("Another Pelk is using the database in " + folder + ". Close it first.");
}

FolderLock::~FolderLock() {
    if (descriptor_ >= 0)
        ::close(descriptor_);
}

}  // namespace pelk
