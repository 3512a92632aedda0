#include "platform/desktop/made_folders.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "platform/desktop/posix_files.h"
#include "platform/desktop/uninterrupted.h"

namespace pelk {
namespace {

void makeMissing(const std::filesystem::path& path, MadeFolders& made) {
    if (path.empty() || PosixFiles().folderExists(path))
        return;
    makeMissing(path.parent_path(), made);
    const std::string& name = path.native();
    made.reserve(made.size() + 1);
    if (uninterrupted([&] { return ::mkdir(name.c_str(), S_IRWXU); }) == 0)
        made.push_back(name);
    else if (errno != EEXIST)
        throw Error(name + " cannot be created: " + std::strerror(errno) + ".");
}

}  // namespace

MadeFolders makeFolders(const std::string& path) {
    MadeFolders made;
    try {
        makeMissing(path, made);
    } catch (...) {
        removeEmpty(made);
        throw;
    }
    return made;
}

void removeEmpty(const MadeFolders& folders) noexcept {
    for (auto folder = folders.rbegin(); folder != folders.rend(); ++folder)
        if (::rmdir(folder->c_str()) != 0)
            return;
}

}  // namespace pelk
