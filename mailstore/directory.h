#pragma once
// Reads directories that hold mail.

#include <sys/types.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pelk {

/// Identifies a file or directory, whichever path leads to it.
using DirectoryId = std::pair<dev_t, ino_t>;

struct DirectoryEntry {
    std::string name;
    /// False for a regular file.
    bool isDirectory = false;
    /// Set for directories only.
    DirectoryId id{};
};

/// Returns the files and directories in `path`, sorted by the bytes of their names. Follows
/// symbolic links; leaves out broken links and other kinds of files. Throws an `Error` if `path`
/// cannot be read.
std::vector<DirectoryEntry> readDirectory(const std::string& path);

/// Returns whether `entry` is the `cur` or `new` of a Maildir.
bool isMaildirPart(const DirectoryEntry& entry);

/// Returns whether the directory `path` has a `cur` or `new`, or the user may not look into it.
bool isMaildir(const std::string& path);

/// Returns whether `name` ends with `ending`, in any letter case, and has text before it.
bool hasEnding(std::string_view name, std::string_view ending);

}  // namespace pelk
