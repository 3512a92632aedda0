#include <algorithm>
#include <map>
#include <set>

#include "mailstore/folder_name.h"
#include "mailstore/folder_place.h"
#include "mailstore/mail_file.h"
#include "mailstore/mail_text.h"
#include "mailstore/special_folder.h"
#include "platform/error.h"

namespace pelk {
namespace {

constexpr std::string_view kSummary = ".msf";

bool isCompanion(const DirectoryEntry& entry) {
    return entry.isDirectory && withoutCompanionEnding(entry.name) != entry.name;
}

/// Returns whether a directory is part of a Maildir or an index, and not a folder.
bool isInternal(const std::string& name) {
    return name == "cur" || name == "new" || name == "tmp" || name.starts_with("courierimap");
}

class Listing {
 public:
    explicit Listing(const FolderPlace& parent) : parent_(parent), nested_(parent.nested) {}

    void addContentOf(const std::string& path) {
        const std::vector<DirectoryEntry> entries = readDirectory(path);
        const std::size_t begin = found_.size();
        for (const DirectoryEntry& entry : entries) {
            isAccount_ = isAccount_ || marksAccount(entry.name);
            if (!isCompanion(entry))
                add(entry, path + "/" + entry.name, entries);
        }
        const std::size_t end = found_.size();
        for (const DirectoryEntry& entry : entries)
            if (isCompanion(entry) && !entry.name.starts_with('.') && isNew(entry.id))
                addCompanion(entry, path + "/" + entry.name, begin, end);
    }

    std::vector<FolderPlace> result() {
        const bool top = holdsTop();
        addNested();
        std::stable_sort(found_.begin(), found_.end(),
                         [](const auto& a, const auto& b) { return a.fileName < b.fileName; });
        std::vector<FolderPlace> places;
        std::set<std::string> taken;
        for (Found& found : found_) {
            found.place.atTop = top;
            found.place.canonical = parent_.canonical + "/" + found.canonicalName;
            // Two folders may have one name: the directory X and, beside it, X.sbd.
            while (!taken.insert(found.place.canonical).second)
                found.place.canonical += "+";
            places.push_back(std::move(found.place));
        }
        return places;
    }

 private:
    struct Found {
        std::string fileName;
        FolderPlace place;
        std::string canonicalName = fileName;
    };

    /// Returns whether mail programs put default folders here: at the top of a store and of an
    /// account in it.
    bool holdsTop() const {
        return parent_.isStore || (parent_.atTop && isContainerName(parent_.name)) ||
               (parent_.kind == FolderPlace::Kind::Directory && isAccount_);
    }

    /// Returns whether the name occurs only in the directory of an account: the inbox, the outbox
    /// of Thunderbird, or the summary file of either, which may be there alone.
    static bool marksAccount(std::string_view name) {
        if (name.ends_with(kSummary))
            name.remove_suffix(kSummary.size());
        return equalsIgnoringCase(name, "INBOX") || name == "Unsent Messages";
    }

    bool isNew(const DirectoryId& id) const {
        return std::find(parent_.trail.begin(), parent_.trail.end(), id) == parent_.trail.end();
    }

    FolderPlace place(std::string name, FolderPlace::Kind kind, const std::string& path) const {
        return {std::move(name), kind, path, {}, {}, parent_.trail, {}};
    }

    FolderPlace directoryPlace(std::string name, const std::string& path,
                               const DirectoryId& id) const {
        FolderPlace result = place(std::move(name), FolderPlace::Kind::Directory, path);
        result.trail.push_back(id);
        return result;
    }

    void add(const DirectoryEntry& entry, const std::string& path,
             const std::vector<DirectoryEntry>& siblings) {
        if (!entry.isDirectory) {
            if (!entry.name.starts_with('.') && !entry.name.ends_with(kSummary) &&
                !isMessageFile(entry) && isMboxAmong(siblings, entry.name, path)) {
                found_.push_back(
                    {entry.name, place(decodeText(entry.name), FolderPlace::Kind::Mbox, path)});
            }
        } else if (!isNew(entry.id) || isInternal(entry.name)) {
            return;
        } else if (!entry.name.starts_with('.')) {
            found_.push_back({entry.name, directoryPlace(decodeText(entry.name), path, entry.id)});
        } else if (isMaildir(path)) {
            // Only an account has folders in Maildir++ layout.
            isAccount_ = true;
            nested_.push_back({splitMaildirName(entry.name), path, entry.id});
        }
    }

    static bool isMboxAmong(const std::vector<DirectoryEntry>& siblings, const std::string& name,
                            const std::string& path) {
        const auto has = [&](std::string_view ending) {
            const auto found =
                std::lower_bound(siblings.begin(), siblings.end(), name + std::string(ending),
                                 [](const auto& a, const auto& b) { return a.name < b; });
            return found != siblings.end() && found->name == name + std::string(ending);
        };
        try {
            const FileStart start = startOf(path);
            return start == FileStart::Mbox ||
                   (start == FileStart::Nothing && (has(kCompanionEnding) || has(kSummary)));
        } catch (const Error&) {
            // Opening the folder reports the fault to the user.
            return true;
        }
    }

    /// Assigns a companion directory to the folder of that name in [`begin`, `end`). Without such a
    /// folder, the directory becomes a folder itself.
    void addCompanion(const DirectoryEntry& entry, const std::string& path, std::size_t begin,
                      std::size_t end) {
        const std::string name = withoutCompanionEnding(entry.name);
        const auto first = found_.begin() + static_cast<std::ptrdiff_t>(begin);
        const auto last = found_.begin() + static_cast<std::ptrdiff_t>(end);
        const auto owner = std::lower_bound(
            first, last, name, [](const auto& a, const auto& b) { return a.fileName < b; });
        if (owner != last && owner->fileName == name) {
            owner->place.companion = path;
            owner->place.trail.push_back(entry.id);
        } else {
            found_.push_back({entry.name, directoryPlace(decodeText(name), path, entry.id), name});
        }
    }

    void addNested() {
        std::map<std::string, FolderPlace> groups;
        for (NestedMaildir& maildir : nested_) {
            const std::string first = maildir.names.front();
            const std::string shown = decodeText(decodeModifiedUtf7(first));
            FolderPlace& group =
                groups.try_emplace(first, place(shown, FolderPlace::Kind::Empty, {})).first->second;
            maildir.names.erase(maildir.names.begin());
            if (!maildir.names.empty()) {
                group.nested.push_back(std::move(maildir));
            } else if (group.kind == FolderPlace::Kind::Empty) {
                group.kind = FolderPlace::Kind::Directory;
                group.path = maildir.path;
                group.trail.push_back(maildir.id);
            } else {
                found_.push_back({"." + first, directoryPlace(shown, maildir.path, maildir.id)});
            }
        }
        for (auto& [name, group] : groups)
            found_.push_back({"." + name, std::move(group)});
    }

    const FolderPlace& parent_;
    std::vector<NestedMaildir> nested_;
    std::vector<Found> found_;
    bool isAccount_ = false;
};

}  // namespace

std::vector<FolderPlace> listSubfolders(const FolderPlace& place) {
    Listing listing(place);
    if (place.kind == FolderPlace::Kind::Directory)
        listing.addContentOf(place.path);
    if (!place.companion.empty())
        listing.addContentOf(place.companion);
    return listing.result();
}

bool anyFolder(const FolderPlace& top, const std::function<bool(const FolderPlace&)>& visit) {
    std::vector<FolderPlace> open = {top};
    std::set<DirectoryId> seen;
    while (!open.empty()) {
        const FolderPlace place = std::move(open.back());
        open.pop_back();
        try {
            if (visit(place))
                return true;
            for (FolderPlace& inner : listSubfolders(place))
                if (inner.kind != FolderPlace::Kind::Directory ||
                    seen.insert(inner.trail.back()).second)
                    open.push_back(std::move(inner));
        } catch (const Error&) {
            // An unreadable folder is skipped; reading it later reports the fault.
        }
    }
    return false;
}

}  // namespace pelk
