#include "mailstore/directory.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <optional>

#include "mailstore/mail_file.h"
#include "mailstore/mail_text.h"

namespace pelk {
namespace {

struct CloseDirectory {
    void operator()(DIR* directory) const { ::closedir(directory); }
};

std::optional<DirectoryEntry> entryFor(DIR* directory, const dirent& found) {
    DirectoryEntry entry{found.d_name};
    // Tens of thousands of messages need not be asked one by one what they are.
    if (found.d_type == DT_REG)
        return entry;
    struct stat status {};
    if (::fstatat(::dirfd(directory), found.d_name, &status, 0) != 0)
        return std::nullopt;
    entry.isDirectory = S_ISDIR(status.st_mode);
    entry.id = {status.st_dev, status.st_ino};
    return entry.isDirectory || S_ISREG(status.st_mode) ? std::optional(entry) : std::nullopt;
}

}  // namespace

std::vector<DirectoryEntry> readDirectory(const std::string& path) {
    const std::unique_ptr<DIR, CloseDirectory> directory(::opendir(path.c_str()));
    if (!directory)
        failReading(path);
    std::vector<DirectoryEntry> entries;
    errno = 0;
    while (const dirent* const found = ::readdir(directory.get())) {
        const std::string_view name = found->d_name;
        if (name != "." && name != "..") {
            if (auto entry = entryFor(directory.get(), *found))
                entries.push_back(std::move(*entry));
        }
        errno = 0;
    }
    if (errno != 0)
        failReading(path);
    std::sort(entries.begin(), entries.end(),
              [](const auto& a, const auto& b) { return a.name < b.name; });
    return entries;
}

bool isMaildirPart(const DirectoryEntry& entry) {
    return entry.isDirectory && (entry.name == "cur" || entry.name == "new");
}

bool isMaildir(const std::string& path) {
    for (const char* const part : {"/cur", "/new"}) {
        struct stat status {};
        if (::stat((path + part).c_str(), &status) == 0 ? S_ISDIR(status.st_mode) : errno == EACCES)
            return true;
    }
    return false;
}

bool hasEnding(std::string_view name, std::string_view ending) {
    return name.size() > ending.size() &&
           equalsIgnoringCase(name.substr(name.size() - ending.size()), ending);
}

}  // namespace pelk
