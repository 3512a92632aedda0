#pragma once
// What the system around the program knows and does: the user's folders, and other programs.

#include <optional>
#include <string>

namespace pelk {

class Shell {
 public:
    virtual ~Shell() = default;
    /// The folder in which programs keep this user's data. It exists; nothing is returned when
    /// the system names none. Throws `Error` when it cannot be made.
    virtual std::optional<std::string> applicationDataFolder() = 0;
    /// The path of that folder, whether it exists or not; nothing when the system names none.
    /// Creates nothing.
    virtual std::optional<std::string> applicationDataFolderName() {
        return applicationDataFolder();
    }
    /// The folder from which the program was loaded, where that is the user's own; nothing where
    /// programs are installed for everybody.
    virtual std::optional<std::string> ownFolder() = 0;
    /// Starts a program that shows the help to the user, and does not wait for it. Throws `Error`
    /// when it cannot be started.
    virtual void openHelp() = 0;
};

}  // namespace pelk
