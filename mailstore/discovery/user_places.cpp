#include "mailstore/discovery/user_places.h"

#include <cstdlib>

namespace pelk {
namespace {

std::string withoutFinalSlash(std::string path) {
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

}  // namespace

UserPlaces userPlaces(const std::function<std::string(const char*)>& variable) {
    const auto path = [&](const char* name) {
        const std::string value = variable(name);
        return value.starts_with('/') ? withoutFinalSlash(value) : std::string();
    };
    UserPlaces places;
    places.home = path("HOME");
    const auto base = [&](const char* name, const char* usual) {
        const std::string named = path(name);
        return named.empty() && !places.home.empty() ? places.home + usual : named;
    };
    places.config = base("XDG_CONFIG_HOME", "/.config");
    places.data = base("XDG_DATA_HOME", "/.local/share");
    places.cache = base("XDG_CACHE_HOME", "/.cache");
    const std::string user = variable("USER");
    places.userName = user.empty() ? variable("LOGNAME") : user;
    places.inbox = path("MAIL");
    return places;
}

UserPlaces currentUserPlaces() {
    return userPlaces([](const char* name) {
        const char* const value = std::getenv(name);
        return std::string(value == nullptr ? "" : value);
    });
}

std::vector<UserPlaces> withSandboxes(const UserPlaces& places,
                                      const std::vector<std::string>& ids) {
    std::vector<UserPlaces> all{places};
    for (const std::string& id : ids) {
        const std::string sandbox = places.home + "/.var/app/" + id;
        all.push_back(places);
        all.back().config = sandbox + "/config";
        all.back().data = sandbox + "/data";
        all.back().cache = sandbox + "/cache";
    }
    return all;
}

}  // namespace pelk
