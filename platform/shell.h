#pragma once
// What the system around the program knows: the user's folders.

#include <optional>
#include <string>

namespace pelk {

class Shell {
 public:
    virtual ~Shell() = default;
    /// The folder in which programs keep this user's data. It exists; nothing is returned when
    /// the system cannot name or make it.
    virtual std::optional<std::string> applicationDataFolder() = 0;
};

}  // namespace pelk
