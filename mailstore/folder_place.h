#pragma once
// Where the mail and the subfolders of a folder lie on disk.

#include <functional>
#include <string>
#include <vector>

#include "mailstore/directory.h"

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
    /// What `MailFolder::place` tells: the path on disk with what only the layout adds taken out,
    /// so that it is the same whether a folder is named or found in a larger store. Work in
    /// "Inbox.sbd" is "Inbox/Work", the Maildir ".Lists.Kernel" is ".Lists/.Kernel".
    std::string canonical;
    /// Whether the user named this folder.
    bool isStore = false;
    /// Whether the folder stands where mail programs put those they have for purposes of their own.
    bool atTop = false;
};

/// The folders in `place`, in order. Fails with an `Error` when a directory of `place` cannot be
/// read. Subfolders that cannot be read are listed all the same and fail when they are opened.
std::vector<FolderPlace> listSubfolders(const FolderPlace& place);

/// Calls `visit` for `top` and the folders below until it returns true, and returns whether it did.
/// No directory is entered twice; what cannot be read is passed over.
bool anyFolder(const FolderPlace& top, const std::function<bool(const FolderPlace&)>& visit);

/// The folder that the user named by `path`. Fails with an `Error` that names the path when it does
/// not exist, cannot be read or holds no mail of a known kind.
FolderPlace findStore(const std::string& path);

}  // namespace pelk
