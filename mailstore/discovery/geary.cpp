// Layout: Accounts.Manager in the sources of Geary. Until version 0.12, the settings were next to
// the database.

#include "mailstore/directory.h"
#include "mailstore/discovery/finders.h"
#include "mailstore/discovery/key_file.h"

namespace pelk {
namespace {

constexpr const char* kProgram = "Geary";

std::string nameIn(const std::string& settings) {
    if (isAbsent(settings))
        return {};
    const std::vector<KeySection> sections = parseKeyFile(readSettingsFile(settings));
    const std::string label = valueIn(sections, "Account", "label");
    return label.empty() ? valueIn(sections, "AccountInformation", "nickname") : label;
}

void addAccount(MailList& list, const UserPlaces& places, const std::string& id) {
    const std::string data = places.data + "/geary/" + id;
    std::string name = nameIn(places.config + "/geary/" + id + "/geary.ini");
    if (name.empty())
        name = nameIn(data + "/geary.ini");
    list.push_back({kProgram, name.empty() ? id : name, data + "/geary.db", {}, {}});
}

}  // namespace

MailList findGearyMail(const UserPlaces& places) {
    MailList list;
    for (const UserPlaces& each : withSandboxes(places, {"org.gnome.Geary"})) {
        const std::string root = each.data + "/geary";
        lookInto(list, kProgram, root, [&] {
            for (const DirectoryEntry& entry : readDirectory(root))
                if (entry.isDirectory)
                    lookInto(list, kProgram, root + "/" + entry.name,
                             [&] { addAccount(list, each, entry.name); });
        });
    }
    return list;
}

}  // namespace pelk
