#pragma once
// Finds the files of a directory that hold one message each.

#include <functional>
#include <string>
#include <vector>

#include "mailstore/directory.h"
#include "mailstore/file_start.h"

namespace pelk {

struct MessageFiles {
    struct Directory {
        /// Ends with a slash.
        std::string path;
        /// Whether the names of its files begin with the arrival time, as in a Maildir.
        bool namesHoldTimes = false;
    };
    struct File {
        std::string name;
        /// The position in `directories`.
        std::size_t directory = 0;
    };

    std::vector<Directory> directories;
    std::vector<File> files;
};

/// Lists the messages of the folder in the directory `path`: its own message files by name, then
/// those in its subdirectories by name. Leaves out messages marked as deleted. The layouts are:
///
/// 1. Files that end with `.eml` or `.emlx`, and files named by a number (MH).
/// 2. `cur` and `new` of a Maildir, and the directories `00` to `3f` in `cur`, over which the IMAP
///    cache of Evolution spreads its files.
/// 3. In a directory `NAME.mbox` of Apple Mail, the directories `Messages` at any depth of `Data`,
///    of directories named by a UUID, and of directories named by a number in these.
///
/// Throws an `Error` if a directory cannot be read.
MessageFiles listMessageFiles(const std::string& path);

/// Returns whether the directory `path` itself has a place for messages in one of these layouts,
/// even if it is empty. Throws as `listMessageFiles` does.
bool hasMessageFiles(const std::string& path);

/// Returns whether a file of that name and content, in a directory that is not part of a Maildir,
/// is one message. `start` is asked only for a name that leaves the matter open.
bool isMessageFile(const DirectoryEntry& entry, const std::function<FileStart()>& start);

/// Returns whether a directory of that name in `NAME.mbox` holds messages of Apple Mail.
bool isAppleMailPart(const std::string& name);

}  // namespace pelk
