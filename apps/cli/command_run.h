#pragma once
// One run of a command: its arguments, the platform, the database.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apps/cli/arguments.h"
#include "db/storage.h"
#include "history/history_file.h"
#include "platform/desktop/desktop_platform.h"
#include "platform/desktop/folder_lock.h"

namespace pelk {

class CommandRun {
 public:
    explicit CommandRun(const Arguments& arguments)
        : arguments_(arguments),
          desktop_(arguments.dataFolder),
          platform_(desktop_.services()),
          storage_(platform_) {}

    const Arguments& arguments() const { return arguments_; }
    const Platform& platform() const { return platform_; }
    const Language& language() const { return platform_.language; }
    Storage& storage() { return storage_; }

    /// Locks the database until the end of the run. Commands that change it call this before they
    /// read it.
    void lock();
    /// Returns the user's database, read at the first call; an empty one when there is none.
    /// Without the lock, reading changes nothing on the disk. Throws `Error`.
    Database& database();

    /// Returns the file of the history, which is read at the first use.
    HistoryFile& historyFile() { return history_; }
    /// Returns the history for a command that only reads, and tells the user when its file is
    /// damaged.
    const History& history();

    /// Returns the ids of the contacts, each given as an id or an address. Throws `Error` that
    /// names the first unknown one.
    int findContact(const std::string& contact);
    std::vector<int> findContacts(const std::vector<std::string>& contacts);

 private:
    const Arguments& arguments_;
    DesktopPlatform desktop_;
    Platform platform_;
    Storage storage_;
    HistoryFile history_{storage_, platform_};
    std::optional<FolderLock> lock_;
    std::unique_ptr<Database> database_;
};

}  // namespace pelk
