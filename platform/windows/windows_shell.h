#pragma once
// The user's folders and clock on Windows.

#include "platform/clock.h"
#include "platform/shell.h"

namespace pelk {

/// The data folder is the application data folder of the user's roaming profile. The own folder is
/// the add-in's, which also holds its help file.
class WindowsShell : public Shell {
 public:
    std::optional<std::string> applicationDataFolder() override;
    std::optional<std::string> ownFolder() override;
    void openHelp() override;
};

class WindowsClock : public Clock {
 public:
    LocalTime now() override;
};

}  // namespace pelk
