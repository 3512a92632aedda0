#pragma once
// Where the mail and the subfolders of a folder lie on disk.

#include <string>
#include <vector>

#include "platform/desktop/mail/directory.h"

namespace pelk {

/// A Maildir whose name leads through folders above it: `.Lists.Kernel` is Kernel in Lists.
struct NestedMaildir {
    /// What is left of its name below the folder that holds this.
    std::vector<std::string> names;
    std::string path;
    DirectoryId id{};
};

struct FolderPlace {
    enum class Kind {
        /// Only there for the folders in it.
        Empty,
        Mbox,
        SingleMessage,
        /// Of message files, or a Maildir.
        Directory,
    };

    std::string name;
    Kind kind = Kind::Empty;
    /// File or directory, unless empty.
    std::string path;
    /// The directory `<name>.sbd` with further subfolders, or empty text.
    std::string companion;
    std::vector<NestedMaildir> nested;
    /// The directories on the way to this folder, its own included. None is entered a second time,
    /// or a symbolic link that leads upwards would never end.
    std::vector<DirectoryId> trail;
};

/// The folders in `place`, in order. Fails with an `Error` when a directory of `place` cannot be
/// read. Subfolders that cannot be read are listed all the same and fail when they are opened.
std::vector<FolderPlace> listSubfolders(const FolderPlace& place);

/// The folder that the user named by `path`. Fails with an `Error` that names the path when it does
/// not exist, cannot be read or holds no mail of a known kind.
FolderPlace findStore(const std::string& path);

}  // namespace pelk
