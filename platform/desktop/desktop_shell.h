#pragma once
// The user's folders and clock on a Linux desktop.

#include <string>

#include "platform/clock.h"
#include "platform/shell.h"

namespace pelk {

/// The data folder is the one that the user names, else $XDG_DATA_HOME, else ~/.local/share. It is
/// created with access for its owner only. The user's browser shows the help.
class DesktopShell : public Shell {
 public:
    /// An empty `dataFolder` means the default one.
    explicit DesktopShell(std::string dataFolder) : dataFolder_(std::move(dataFolder)) {}
    std::optional<std::string> applicationDataFolder() override;
    std::optional<std::string> applicationDataFolderName() override;
    std::optional<std::string> ownFolder() override { return std::nullopt; }
    void openHelp() override;

 private:
    std::string dataFolder_;
};

/// Opens a page of the help, which has that file name, in the user's browser. Throws `Error` when
/// it is not installed or the browser does not start.
void openHelpPage(const std::string& name);

class SystemClock : public Clock {
 public:
    LocalTime now() override;
};

}  // namespace pelk
