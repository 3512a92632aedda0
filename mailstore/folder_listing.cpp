#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "mailstore/folder_name.h"
#include "mailstore/folder_place.h"
#include "mailstore/mail_text.h"
#include "mailstore/message_files.h"
#include "mailstore/special_folder.h"

namespace pelk {
namespace {

constexpr std::string_view kSummary = ".msf";

bool isCompanion(const DirectoryEntry& entry) {
    return entry.isDirectory && companionOwner(entry.name);
}

/// Returns whether the directory `name` in the directory `parent` is part of a Maildir, of a
/// mailbox of Apple Mail or of an index, and not a folder.
bool isInternal(const std::string& name, const std::string& parent) {
    return name == "cur" || name == "new" || name == "tmp" || name.starts_with("courierimap") ||
           (hasEnding(parent, kAppleMailboxEnding) &&
            (name == "Attachments" || isAppleMailPart(name)));
}

/// Returns nothing if the file cannot be read.
std::optional<FileStart> startIfReadable(const std::string& path) {
    try {
        return startOf(path);
    } catch (const Error&) {
        return std::nullopt;
    }
}

bool has(const std::vector<DirectoryEntry>& entries, const std::string& name) {
    const auto found = std::lower_bound(entries.begin(), entries.end(), name,
                                        [](const auto& a, const auto& b) { return a.name < b; });
    return found != entries.end() && found->name == name;
}

/// The files of one directory with messages that nobody here can read.
class UnknownFiles {
 public:
    void add(const std::string& name) {
        if (count_++ == 0)
            first_ = name;
    }
    bool empty() const { return count_ == 0; }
    const std::string& first() const { return first_; }
    std::string description() const {
        return first_ + (count_ > 1 ? " and " + std::to_string(count_ - 1) + " more" : "");
    }

 private:
    std::string first_;
    std::size_t count_ = 0;
};

class Listing {
 public:
    explicit Listing(const FolderPlace& parent)
        : parent_(parent), trail_(parent.trail), nested_(parent.nested) {}

    void addContentOf(const std::string& path) {
        const std::vector<DirectoryEntry> entries = readDirectory(path);
        const std::size_t begin = found_.size();
        for (const DirectoryEntry& entry : entries) {
            isAccount_ = isAccount_ || marksAccount(entry.name);
            if (entry.isDirectory && !isCompanion(entry))
                addDirectory(entry, path, entries);
            else if (!entry.isDirectory)
                addFile(entry, path, entries);
        }
        const std::size_t end = found_.size();
        for (const DirectoryEntry& entry : entries)
            if (isCompanion(entry) && isNew(entry.id))
                addCompanion(entry, path + "/" + entry.name, begin, end);
        addUnknown(path);
        for (const DirectoryEntry& entry : entries)
            if (entry.isDirectory && entry.name == kCacheSubfolders && isNew(entry.id)) {
                trail_.push_back(entry.id);
                addContentOf(path + "/" + entry.name);
            }
    }

    void addGearyFolders(const std::string& path, const std::shared_ptr<GearyStore>& store,
                         GearyStore::FolderId parent) {
        for (const GearyStore::Folder& folder : store->folders(parent)) {
            FolderPlace inner = place(decodeText(folder.name), FolderPlace::Kind::Geary, path);
            inner.geary = store;
            inner.gearyId = folder.id;
            found_.push_back({folder.name, std::move(inner)});
        }
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
    /// of Thunderbird, the summary file of either, which may be there alone, or the file of Geary.
    static bool marksAccount(std::string_view name) {
        for (const std::string_view ending : {kSummary, kAppleMailboxEnding})
            if (name.ends_with(ending))
                name.remove_suffix(ending.size());
        return equalsIgnoringCase(name, "INBOX") || name == "Unsent Messages" || name == kGearyFile;
    }

    bool isNew(const DirectoryId& id) const {
        return std::find(trail_.begin(), trail_.end(), id) == trail_.end();
    }

    FolderPlace place(std::string name, FolderPlace::Kind kind, const std::string& path) const {
        FolderPlace result;
        result.name = std::move(name);
        result.kind = kind;
        result.path = path;
        result.trail = trail_;
        return result;
    }

    FolderPlace directoryPlace(std::string name, const std::string& path,
                               const DirectoryId& id) const {
        FolderPlace result = place(std::move(name), FolderPlace::Kind::Directory, path);
        result.trail.push_back(id);
        return result;
    }

    void addFile(const DirectoryEntry& entry, const std::string& directory,
                 const std::vector<DirectoryEntry>& siblings) {
        if (entry.name.starts_with('.') || entry.name.ends_with(kSummary))
            return;
        const std::string path = directory + "/" + entry.name;
        if (entry.name == kGearyFile)
            return addGearyFile(path);
        if (isMessageFile(entry, [&] { return startOf(path); })) {
            hasMail_ = true;
            return;
        }
        const std::optional<FileStart> start = startIfReadable(path);
        // Opening a folder that cannot be read reports the fault to the user.
        if (!start || *start == FileStart::Mbox ||
            (*start == FileStart::Nothing && isFolderOfEmptyFile(entry.name, siblings))) {
            hasMail_ = true;
            found_.push_back(
                {entry.name, place(decodeText(entry.name), FolderPlace::Kind::Mbox, path)});
        } else if (*start == FileStart::Foreign) {
            foreign_.add(entry.name);
        } else if (*start == FileStart::Message) {
            unknownMessages_.add(entry.name);
        }
    }

    /// Adds the folders of the account, which the directory of the file stands for.
    void addGearyFile(const std::string& path) {
        try {
            addGearyFolders(path, GearyStore::open(path), GearyStore::kTop);
        } catch (const Error& error) {
            // Opening the folder reports the fault to the user.
            const std::string name(kGearyFile);
            found_.push_back({name, place(name, FolderPlace::Kind::Geary, path)});
            found_.back().place.fault = error.what();
        }
    }

    static bool isFolderOfEmptyFile(const std::string& name,
                                    const std::vector<DirectoryEntry>& siblings) {
        std::vector<std::string> signs = companionNames(name);
        signs.push_back(name + std::string(kSummary));
        return std::any_of(signs.begin(), signs.end(),
                           [&](const std::string& sign) { return has(siblings, sign); });
    }

    void addDirectory(const DirectoryEntry& entry, const std::string& directory,
                      const std::vector<DirectoryEntry>& siblings) {
        const std::string path = directory + "/" + entry.name;
        if (isMaildirPart(entry))
            hasMail_ = true;
        // Attachments may be messages, which somebody forwarded and nobody received.
        const bool isAttachments =
            entry.name == "attachments" && has(siblings, std::string(kGearyFile));
        if (!isNew(entry.id) || isInternal(entry.name, directory) || isAttachments ||
            entry.name == kCacheSubfolders)
            return;
        if (!entry.name.starts_with('.')) {
            found_.push_back(
                {entry.name, directoryPlace(directoryTitle(entry.name), path, entry.id)});
        } else if (isMaildir(path)) {
            // Only an account has folders in Maildir++ layout.
            isAccount_ = true;
            nested_.push_back({splitMaildirName(entry.name), path, entry.id,
                               has(siblings, std::string(kEscapedNamesMark))});
        }
    }

    /// Text files may begin like messages. They mean mail in an unknown layout only in a directory
    /// without any mail that can be read.
    void addUnknown(const std::string& path) {
        for (const UnknownFiles* const files : {&foreign_, &unknownMessages_})
            if (!files->empty() && (files == &foreign_ || !hasMail_))
                found_.push_back(
                    {files->first(), place(decodeText(files->first()), FolderPlace::Kind::Unknown,
                                           path + "/" + files->description())});
        foreign_ = unknownMessages_ = {};
        hasMail_ = false;
    }

    /// Assigns a companion directory to the folder of that name in [`begin`, `end`). Without such a
    /// folder, the directory becomes a folder itself.
    void addCompanion(const DirectoryEntry& entry, const std::string& path, std::size_t begin,
                      std::size_t end) {
        const std::string name = *companionOwner(entry.name);
        const auto first = found_.begin() + static_cast<std::ptrdiff_t>(begin);
        const auto last = found_.begin() + static_cast<std::ptrdiff_t>(end);
        const auto owner = std::lower_bound(
            first, last, name, [](const auto& a, const auto& b) { return a.fileName < b; });
        if (owner != last && owner->fileName == name && owner->place.companion.empty()) {
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
            const std::string shown =
                decodeText(maildir.escaped ? decodeEscapedName(first) : decodeModifiedUtf7(first));
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
    std::vector<DirectoryId> trail_;
    std::vector<NestedMaildir> nested_;
    std::vector<Found> found_;
    bool isAccount_ = false;
    /// What the directory holds whose content is being added.
    UnknownFiles foreign_;
    UnknownFiles unknownMessages_;
    bool hasMail_ = false;
};

}  // namespace

std::string directoryTitle(const std::string& name) {
    const std::optional<std::string> owner = companionOwner(name);
    if (!owner && hasEnding(name, kAppleMailboxEnding))
        return decodeText(name.substr(0, name.size() - kAppleMailboxEnding.size()));
    return decodeText(owner.value_or(name));
}

std::vector<FolderPlace> listSubfolders(const FolderPlace& place) {
    Listing listing(place);
    if (place.kind == FolderPlace::Kind::Directory)
        listing.addContentOf(place.path);
    if (place.kind == FolderPlace::Kind::Geary && place.geary)
        listing.addGearyFolders(place.path, place.geary, place.gearyId);
    if (!place.companion.empty())
        listing.addContentOf(place.companion);
    return listing.result();
}

std::vector<FolderPlace> listLabels(const FolderPlace& place,
                                    const std::shared_ptr<const LabelledMbox>& mbox) {
    std::vector<FolderPlace> places;
    for (const std::string& label : mbox->labels()) {
        FolderPlace& folder = places.emplace_back(place);
        folder.name = label;
        folder.companion.clear();
        folder.canonical += "/" + label;
        folder.labelled = mbox;
        folder.label = label;
        folder.isStore = false;
        folder.atTop = true;
    }
    return places;
}

bool anyFolder(const FolderPlace& top, const std::function<bool(const FolderPlace&)>& visit,
               const std::function<void(const Error&)>& unreadable) {
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
        } catch (const Error& error) {
            unreadable(error);
        }
    }
    return false;
}

}  // namespace pelk
