#pragma once
// The directories of one user's programs. Tests use fictitious ones.

#include <functional>
#include <string>
#include <vector>

namespace pelk {

/// Paths are absolute and have no final slash. An empty path is unknown.
struct UserPlaces {
    std::string home;
    /// The directories of settings, data and caches (XDG base directories).
    std::string config;
    std::string data;
    std::string cache;
    std::string userName;
    /// The mailbox for local delivery, from the variable MAIL.
    std::string inbox;
    /// The directory with one system mailbox per user.
    std::string spool = "/var/mail";
};

/// Returns the places that the environment names. `variable` returns the value of an environment
/// variable, or empty text if it is not set. Values that are not absolute paths are ignored.
UserPlaces userPlaces(const std::function<std::string(const char*)>& variable);

/// Returns the places of the user who runs the program.
UserPlaces currentUserPlaces();

/// Returns `places`, followed by the sandboxes of programs that Flatpak installed under these ids.
std::vector<UserPlaces> withSandboxes(const UserPlaces& places,
                                      const std::vector<std::string>& ids);

}  // namespace pelk
