#pragma once
// Where the programs of one user keep what they remember, so that tests can make up a home.

#include <functional>
#include <string>
#include <vector>

namespace pelk {

/// Paths are absolute and have no slash at their end. Empty ones are not known.
struct UserPlaces {
    std::string home;
    /// Of settings, of data, and of data that can be fetched again (XDG base directories).
    std::string config;
    std::string data;
    std::string cache;
    std::string userName;
    /// The mailbox that the system delivers into, as the variable MAIL tells it.
    std::string inbox;
    /// Where the system's mailboxes stand, one for each user.
    std::string spool = "/var/mail";
};

/// Returns the places that the environment names. `variable` returns the value of an environment
/// variable, or empty text if it is not set. Values that are no absolute paths are ignored.
UserPlaces userPlaces(const std::function<std::string(const char*)>& variable);

/// Returns the places of the user who runs the program.
UserPlaces currentUserPlaces();

/// Returns `places`, and behind them the places of programs that Flatpak installed under these ids:
/// each of them keeps its files in a sandbox.
std::vector<UserPlaces> withSandboxes(const UserPlaces& places,
                                      const std::vector<std::string>& ids);

}  // namespace pelk
