// Layout: https://kb.mozillazine.org/Files_and_folders_in_the_profile_-_Thunderbird, and
// nsMsgAccountManager and nsMsgIncomingServer in the sources of Thunderbird.

#include <charconv>
#include <sstream>
#include <utility>

#include "mailstore/directory.h"
#include "mailstore/discovery/finders.h"
#include "mailstore/discovery/key_file.h"
#include "mailstore/discovery/mozilla_prefs.h"

namespace pelk {
namespace {

/// The directories in the home directory in which the programs keep `profiles.ini`.
constexpr std::pair<const char*, const char*> kRoots[] = {
    {"Thunderbird", ".thunderbird"},
    {"Thunderbird", ".mozilla-thunderbird"},
    {"Thunderbird", "snap/thunderbird/common/.thunderbird"},
    {"Thunderbird", ".var/app/org.mozilla.Thunderbird/.thunderbird"},
    {"Thunderbird", ".var/app/net.thunderbird.Thunderbird/.thunderbird"},
    // In a home directory copied from another system.
    {"Thunderbird", "Library/Thunderbird"},
    {"Thunderbird", "AppData/Roaming/Thunderbird"},
    {"Betterbird", ".betterbird"},
    {"Betterbird", ".var/app/eu.betterbird.Betterbird/.thunderbird"},
    {"Betterbird", ".var/app/eu.betterbird.Betterbird/.betterbird"},
    {"Icedove", ".icedove"},
    {"SeaMonkey", ".mozilla/seamonkey"},
};

constexpr std::string_view kProfileDirectory = "[ProfD]";

struct Profile {
    std::string program;
    std::string name;
    std::string path;
    /// Whether accounts need the name of their profile to be distinguished.
    bool isOneOfSeveral = false;
};

/// Decodes %20 and the like (RFC 3986, 2.1).
std::string withoutEscapes(const std::string& uri) {
    std::string text;
    for (std::size_t at = 0; at < uri.size(); ++at) {
        int byte = static_cast<unsigned char>(uri[at]);
        const char* const digits = uri.data() + at + 1;
        if (uri[at] == '%' && uri.size() - at > 2 &&
            std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2)
            at += 2;
        text += static_cast<char>(byte);
    }
    return text;
}

class Accounts {
 public:
    Accounts(const Profile& profile, MozillaPrefs prefs)
        : profile_(profile), prefs_(std::move(prefs)) {}

    MailList list() const {
        MailList list;
        for (const std::string& key : keys())
            add(list, pref("mail.account." + key + ".server"));
        for (FoundMail& mail : list)
            mail.ownAddresses = ownAddresses();
        return list;
    }

 private:
    /// Returns those of all accounts: an account may write into the folders of another one.
    std::vector<std::string> ownAddresses() const {
        std::vector<std::string> addresses;
        for (const auto& [name, value] : prefs_)
            if (name.starts_with("mail.identity.") && name.ends_with(".useremail"))
                addresses.push_back(value);
        return addresses;
    }

    std::string pref(const std::string& name) const {
        const auto found = prefs_.find(name);
        return found == prefs_.end() ? std::string() : found->second;
    }

    std::vector<std::string> keys() const {
        std::vector<std::string> keys;
        std::istringstream stream(pref("mail.accountmanager.accounts"));
        for (std::string key; std::getline(stream, key, ',');)
            keys.push_back(key);
        return keys;
    }

    void add(MailList& list, const std::string& server) const {
        const std::string prefix = "mail.server." + server + ".";
        const std::string type = pref(prefix + "type");
        // News, feeds and chats are not mail.
        if (server.empty() || type == "nntp" || type == "rss" || type == "im")
            return;
        // Its mail is in the account that it delivers to.
        if (!pref(prefix + "deferred_to_account").empty())
            return;
        const std::string directory = directoryOf(prefix);
        if (directory.empty())
            return;
        const bool isOnServer = type != "none" && type != "pop3";
        list.push_back({profile_.program,
                        nameOf(prefix),
                        directory,
                        {},
                        isOnServer ? profile_.program +
                                         " keeps no messages of this account on this computer; "
                                         "they are on the mail server."
                                   : std::string(),
                        false,
                        pref(prefix + "trash_folder_name"),
                        outboxOf(prefix)});
    }

    /// The setting is the URI of a folder in one account: "mailbox://nobody@Local%20Folders/Later".
    std::string outboxOf(const std::string& prefix) const {
        const std::string uri = withoutEscapes(pref("mail.default_sendlater_uri"));
        const std::string account =
            "://" + pref(prefix + "userName") + "@" + pref(prefix + "hostname") + "/";
        const std::size_t found = uri.find(account);
        return found == std::string::npos ? std::string() : uri.substr(found + account.size());
    }

    /// A path relative to the profile stays valid when the home directory is moved.
    std::string directoryOf(const std::string& prefix) const {
        const std::string relative = pref(prefix + "directory-rel");
        std::string absolute = pref(prefix + "directory");
        if (!relative.starts_with(kProfileDirectory))
            return absolute;
        const std::string path = profile_.path + "/" + relative.substr(kProfileDirectory.size());
        return absolute.empty() || !isAbsent(path) ? path : absolute;
    }

    std::string nameOf(const std::string& prefix) const {
        std::string name = pref(prefix + "name");
        if (name.empty())
            name = pref(prefix + "userName") + "@" + pref(prefix + "hostname");
        return profile_.isOneOfSeveral ? name + " (" + profile_.name + ")" : name;
    }

    const Profile& profile_;
    const MozillaPrefs prefs_;
};

/// Adds the usual directories of accounts, for a profile whose settings name none.
MailList accountDirectories(const Profile& profile) {
    MailList list;
    for (const char* const part : {"/Mail", "/ImapMail"}) {
        const std::string path = profile.path + part;
        lookInto(list, profile.program, path, [&] {
            for (const DirectoryEntry& entry : readDirectory(path))
                if (entry.isDirectory)
                    list.push_back({profile.program, entry.name, path + "/" + entry.name, {}, {}});
        });
    }
    return list;
}

void append(MailList& list, MailList more) {
    for (FoundMail& mail : more)
        list.push_back(std::move(mail));
}

void addProfile(MailList& list, const Profile& profile) {
    const std::string path = profile.path + "/prefs.js";
    MailList accounts;
    lookInto(accounts, profile.program, path, [&] {
        append(accounts,
               Accounts(profile, parseMozillaPrefs(readSettingsFile(path), "mail.")).list());
    });
    append(list, accounts.empty() ? accountDirectories(profile) : std::move(accounts));
}

std::vector<Profile> profilesIn(const std::string& program, const std::string& root) {
    std::vector<Profile> profiles;
    for (const KeySection& section : parseKeyFile(readSettingsFile(root + "/profiles.ini"))) {
        std::string path = section.value("Path");
        if (!section.name.starts_with("Profile") || path.empty())
            continue;
        if (section.value("IsRelative") == "1")
            path.insert(0, root + "/");
        if (path.starts_with('/'))
            profiles.push_back({program, section.value("Name"), path});
    }
    for (Profile& profile : profiles)
        profile.isOneOfSeveral = profiles.size() > 1;
    return profiles;
}

}  // namespace

MailList findThunderbirdMail(const UserPlaces& places) {
    MailList list;
    const auto look = [&list](const std::string& program, const std::string& root) {
        lookInto(list, program, root + "/profiles.ini", [&] {
            for (const Profile& profile : profilesIn(program, root))
                addProfile(list, profile);
        });
    };
    for (const auto& [program, folder] : kRoots)
        look(program, places.home + "/" + folder);
    // Version 147 and later use this directory if there is none of an older version.
    look("Thunderbird", places.config + "/thunderbird");
    look("SeaMonkey", places.config + "/mozilla/seamonkey");
    return list;
}

}  // namespace pelk
