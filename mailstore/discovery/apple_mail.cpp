// Layout: `~/Library/Mail/V*` with a directory for each account, "POP-jane@host" in the older
// versions, a UUID in the newer ones, whose names are in a database of the system.

#include "mailstore/directory.h"
#include "mailstore/discovery/finders.h"

namespace pelk {
namespace {

constexpr const char* kProgram = "Apple Mail";

/// Returns whether a directory next to those of the accounts belongs to the program itself.
bool isInternal(const std::string& name) {
    return name == "MailData" || name == "RSS" || name.starts_with('.');
}

void addAccounts(MailList& list, const std::string& version) {
    for (const DirectoryEntry& entry : readDirectory(version))
        if (entry.isDirectory && !isInternal(entry.name))
            list.push_back({kProgram,
                            entry.name,
                            version + "/" + entry.name,
                            {},
                            "Apple Mail keeps no messages of this account on this computer."});
}

}  // namespace

MailList findAppleMail(const UserPlaces& places) {
    MailList list;
    const std::string root = places.home + "/Library/Mail";
    lookInto(list, kProgram, root, [&] {
        for (const DirectoryEntry& entry : readDirectory(root)) {
            const std::string version = root + "/" + entry.name;
            if (entry.isDirectory && entry.name.starts_with('V'))
                lookInto(list, kProgram, version, [&] { addAccounts(list, version); });
        }
    });
    return list;
}

}  // namespace pelk
