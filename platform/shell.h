#pragma once
// The user's folders, and other programs.

#include <optional>
#include <string>

namespace pelk {

class Shell {
 public:
    virtual ~Shell() = default;
    /// Returns the existing folder for this user's application data; nothing when the system names
    /// none. Throws `Error` when it cannot be created.
    virtual std::optional<std::string> applicationDataFolder() = 0;
    /// Returns the path of that folder, which need not exist; nothing when the system names none.
    /// Creates nothing.
    virtual std::optional<std::string> applicationDataFolderName() {
        return applicationDataFolder();
    }
    /// Returns the folder from which the program was loaded if it belongs to the user; nothing
    /// where programs are installed for everybody.
    virtual std::optional<std::string> ownFolder() = 0;
    /// Starts a program that shows the help, without waiting for it. Throws `Error` when it does
    /// not start.
    virtual void openHelp() = 0;
};

}  // namespace pelk
