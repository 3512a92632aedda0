// Layout: the resources of Akonadi, each with a file of settings "akonadi_maildir_resource_0rc" and
// a name in "akonadi/agent_config_akonadi_maildir_resource_0" (Akonadi::AgentBase).

#include "mailstore/directory.h"
#include "mailstore/discovery/finders.h"
#include "mailstore/discovery/key_file.h"

namespace pelk {
namespace {

constexpr const char* kProgram = "KMail";
constexpr std::string_view kSettingsEnding = "rc";
constexpr std::string_view kFileUrl = "file://";

/// The resources that keep mail on the disk.
constexpr std::string_view kLocalKinds[] = {
    "akonadi_maildir_resource_", "akonadi_mixedmaildir_resource_", "akonadi_mbox_resource_"};
constexpr std::string_view kServerKind = "akonadi_imap_resource_";

bool isOfKind(const DirectoryEntry& entry, std::string_view kind) {
    return !entry.isDirectory && entry.name.starts_with(kind) &&
           hasEnding(entry.name, kSettingsEnding);
}

/// Returns a path that KDE wrote as a URL, or with a variable for the home directory.
std::string toPath(std::string value, const UserPlaces& places) {
    if (value.starts_with(kFileUrl))
        value.erase(0, kFileUrl.size());
    for (const std::string_view home : {"$HOME/", "${HOME}/", "~/"})
        if (value.starts_with(home))
            value = places.home + "/" + value.substr(home.size());
    while (value.size() > 1 && value.ends_with('/'))
        value.pop_back();
    return value;
}

std::string lastName(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

std::string nameOf(const std::string& id, const UserPlaces& places) {
    const std::string path = places.config + "/akonadi/agent_config_" + id;
    return isAbsent(path) ? std::string()
                          : valueIn(parseKeyFile(readSettingsFile(path)), "Agent", "Name");
}

void addResource(MailList& list, const UserPlaces& places, const std::string& file) {
    const std::string id = file.substr(0, file.size() - kSettingsEnding.size());
    const std::vector<KeySection> sections =
        parseKeyFile(readSettingsFile(places.config + "/" + file));
    const std::string name = nameOf(id, places);
    if (const std::string path = toPath(valueIn(sections, "General", "Path"), places);
        path.starts_with('/'))
        list.push_back({kProgram, name.empty() ? lastName(path) : name, path, {}, {}});
}

void addServerAccount(MailList& list, const UserPlaces& places, const std::string& file) {
    const std::string path = places.config + "/" + file;
    const std::vector<KeySection> sections = parseKeyFile(readSettingsFile(path));
    list.push_back({kProgram,
                    valueIn(sections, "network", "UserName") + "@" +
                        valueIn(sections, "network", "ImapServer"),
                    path,
                    "KMail keeps the mail of this account in a database of its own, which Pelk "
                    "cannot read. The mail is on the server, too: add that as a mail server.",
                    {}});
}

void addResources(MailList& list, const UserPlaces& places) {
    const auto add = [&](const DirectoryEntry& entry, const auto& addOne) {
        lookInto(list, kProgram, places.config + "/" + entry.name,
                 [&] { addOne(list, places, entry.name); });
    };
    for (const DirectoryEntry& entry : readDirectory(places.config)) {
        for (const std::string_view kind : kLocalKinds)
            if (isOfKind(entry, kind))
                add(entry, addResource);
        if (isOfKind(entry, kServerKind))
            add(entry, addServerAccount);
    }
}

/// Adds the directories that Akonadi creates for resources by default.
void addOwnDirectories(MailList& list, const UserPlaces& places) {
    for (const DirectoryEntry& entry : readDirectory(places.data))
        if (entry.isDirectory && entry.name.starts_with(kLocalKinds[0]))
            list.push_back({kProgram, entry.name, places.data + "/" + entry.name, {}, {}});
}

}  // namespace

MailList findKMailMail(const UserPlaces& places) {
    MailList list;
    for (const UserPlaces& each :
         withSandboxes(places, {"org.kde.kontact", "org.kde.kmail", "org.kde.kmail2"})) {
        lookInto(list, kProgram, each.config, [&] { addResources(list, each); });
        list.push_back({kProgram, "Local Folders", each.data + "/local-mail", {}, {}});
        lookInto(list, kProgram, each.data, [&] { addOwnDirectories(list, each); });
    }
    for (const char* const old : {"/.kde/share/apps/kmail/mail", "/.kde4/share/apps/kmail/mail"})
        list.push_back({kProgram, "Local Folders", places.home + old, {}, {}});
    return list;
}

}  // namespace pelk
