#pragma once
// Where the messages and the subfolders of a folder are on disk.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "mailstore/directory.h"
#include "mailstore/geary_store.h"
#include "mailstore/labelled_mbox.h"
#include "platform/error.h"

namespace pelk {

/// A Maildir++ folder whose name holds those of its parents: `.Lists.Kernel` is Kernel in Lists.
struct NestedMaildir {
    /// The rest of its name, relative to the folder that holds this.
    std::vector<std::string> names;
    std::string path;
    DirectoryId id{};
    /// Whether the names are escaped as `decodeEscapedName` describes.
    bool escaped = false;
};

struct FolderPlace {
    enum class Kind {
        /// Has subfolders and no messages.
        Empty,
        Mbox,
        SingleMessage,
        /// A directory as `listMessageFiles` reads it.
        Directory,
        /// A folder of a Geary account.
        Geary,
        /// Messages in a format that nobody here can read.
        Unknown,
    };

    std::string name;
    Kind kind = Kind::Empty;
    /// A file or directory; empty for `Kind::Empty`, a description for `Kind::Unknown`.
    std::string path;
    /// A directory with further subfolders, see `companionOwner`; empty if there is none.
    std::string companion;
    std::vector<NestedMaildir> nested;
    /// The directories from the store down to this folder, its own included. None is entered twice,
    /// so a symbolic link that leads upwards causes no endless walk.
    std::vector<DirectoryId> trail;
    /// The result of `MailFolder::place`: the path on disk without what only the layout adds. It
    /// does not depend on whether the user named the folder or a larger store. Work in "Inbox.sbd"
    /// is "Inbox/Work", the Maildir ".Lists.Kernel" is ".Lists/.Kernel".
    std::string canonical;
    /// The account of a Geary folder, and the folder in it. Null if the account cannot be read;
    /// `fault` is the reason then.
    std::shared_ptr<GearyStore> geary;
    std::string fault;
    GearyStore::FolderId gearyId = GearyStore::kTop;
    /// The mbox of a folder that stands for a label, and the label. Null for other folders.
    std::shared_ptr<const LabelledMbox> labelled;
    std::string label;
    /// Whether the user named this folder.
    bool isStore = false;
    /// Whether the folder is where mail programs put their default folders.
    bool atTop = false;
};

/// Returns the subfolders of `place`, in order. Throws an `Error` if a directory of `place` cannot
/// be read. Subfolders that cannot be read are listed, and fail when they are opened.
std::vector<FolderPlace> listSubfolders(const FolderPlace& place);

/// Returns the folders that stand for the labels in the mbox `place`. `listSubfolders` does not
/// return them, because finding them takes a look at each message.
std::vector<FolderPlace> listLabels(const FolderPlace& place,
                                    const std::shared_ptr<const LabelledMbox>& mbox);

/// Calls `visit` for `top` and all folders below it until it returns true. Returns whether it did.
/// Enters no directory twice. Skips what cannot be read, or makes `visit` throw an `Error`, and
/// calls `unreadable` with the fault.
bool anyFolder(
    const FolderPlace& top, const std::function<bool(const FolderPlace&)>& visit,
    const std::function<void(const Error&)>& unreadable = [](const Error&) {});

/// Returns `FolderPlace::canonical` of the file or directory at `path`. Throws an `Error` if it
/// does not exist or cannot be reached.
std::string canonicalPlace(const std::string& path);

/// Returns the name under which a directory is shown, given its name on disk.
std::string directoryTitle(const std::string& name);

/// What `findStore` throws where nothing at all looks like mail.
class NoMailFound : public Error {
 public:
    using Error::Error;
};

/// Returns the folder that the user named by `path`. Throws an `Error` that names the path if it
/// does not exist or cannot be read, a `NoMailFound` if it holds no mail of a known kind.
FolderPlace findStore(const std::string& path);

}  // namespace pelk
