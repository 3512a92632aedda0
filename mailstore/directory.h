#pragma once
// What a directory with mail holds.

#include <sys/types.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pelk {

/// The same for every path that leads to a directory.
using DirectoryId = std::pair<dev_t, ino_t>;

struct DirectoryEntry {
    std::string name;
    /// Otherwise it is a regular file.
    bool isDirectory = false;
    /// Of a directory.
    DirectoryId id{};
};

/// The files and directories in `path`, symbolic links followed, in the byte order of their names.
/// What is neither, or leads nowhere, is left out. Fails with an `Error`.
std::vector<DirectoryEntry> readDirectory(const std::string& path);

/// Whether `entry` is a file with the ending `.eml`.
bool isMessageFile(const DirectoryEntry& entry);

/// Whether `entry` is the `cur` or `new` of a Maildir.
bool isMaildirPart(const DirectoryEntry& entry);

/// Whether the directory `path` has a `cur` or `new`, or hides it.
bool isMaildir(const std::string& path);

/// Whether `name` ends with `ending` in any letter case.
bool hasEnding(std::string_view name, std::string_view ending);

}  // namespace pelk
