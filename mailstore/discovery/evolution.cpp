// Layout: https://wiki.gnome.org/Apps/Evolution/ESourceFileFormat for the accounts. Camel keeps
// local folders in the data directory, and fetched mail in the cache directory.

#include "mailstore/directory.h"
#include "mailstore/discovery/finders.h"
#include "mailstore/discovery/key_file.h"

namespace pelk {
namespace {

constexpr const char* kProgram = "Evolution";
constexpr std::string_view kSourceEnding = ".source";

/// The sections of an account that contain a path on the disk.
constexpr const char* kLocalSections[] = {"Maildir Backend", "Mbox Backend", "MH Backend",
                                          "Spool Backend", "Spool Directory Backend"};

void addSource(MailList& list, const UserPlaces& places, const std::string& directory,
               const std::string& file) {
    const std::vector<KeySection> sections = parseKeyFile(readSettingsFile(directory + "/" + file));
    const std::string name = valueIn(sections, "Data Source", "DisplayName");
    const std::string id = file.substr(0, file.size() - kSourceEnding.size());
    if (valueIn(sections, "Mail Account", "BackendName").empty())
        return;
    for (const char* const section : kLocalSections)
        if (const std::string path = valueIn(sections, section, "Path"); !path.empty())
            list.push_back({kProgram, name, path, {}, {}});
    const std::string fetched = places.cache + "/evolution/mail/" + id + "/folders";
    list.push_back({kProgram,
                    name.empty() ? id : name,
                    fetched,
                    {},
                    "Evolution keeps no messages of this account on this computer; they are on the "
                    "mail server."});
}

/// Adds the fetched mail of accounts that are no longer in the settings.
void addFetched(MailList& list, const std::string& root) {
    for (const DirectoryEntry& entry : readDirectory(root))
        if (entry.isDirectory)
            list.push_back(
                {kProgram, entry.name, root + "/" + entry.name + "/folders", {}, {}, true});
}

}  // namespace

MailList findEvolutionMail(const UserPlaces& places) {
    MailList list;
    for (const UserPlaces& each : withSandboxes(places, {"org.gnome.Evolution"})) {
        list.push_back({kProgram, "On This Computer", each.data + "/evolution/mail/local", {}, {}});
        const std::string sources = each.config + "/evolution/sources";
        lookInto(list, kProgram, sources, [&] {
            for (const DirectoryEntry& entry : readDirectory(sources))
                if (!entry.isDirectory && hasEnding(entry.name, kSourceEnding))
                    lookInto(list, kProgram, sources + "/" + entry.name,
                             [&] { addSource(list, each, sources, entry.name); });
        });
        const std::string root = each.cache + "/evolution/mail";
        lookInto(list, kProgram, root, [&] { addFetched(list, root); });
    }
    // The path before version 3.
    list.push_back({kProgram, "On This Computer", places.home + "/.evolution/mail/local", {}, {}});
    return list;
}

}  // namespace pelk
