#include "mailstore/named_stores.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <utility>

namespace pelk {
namespace {

/// Returns nothing if `path` is empty or does not exist.
std::optional<DirectoryId> idOf(const std::string& path) {
    struct stat status {};
    if (path.empty() || ::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return DirectoryId(status.st_dev, status.st_ino);
}

/// Returns the ids that `store` has in the contents of an enclosing store. One match is enough.
std::set<DirectoryId> idsOfStore(const FolderPlace& store) {
    std::error_code error;
    std::filesystem::path folder = std::filesystem::canonical(store.path, error);
    if (store.kind == FolderPlace::Kind::SingleMessage || store.kind == FolderPlace::Kind::Geary)
        folder = folder.parent_path();
    std::vector<std::string> paths = {store.path, folder.string()};
    if (folder.filename() == "cur" || folder.filename() == "new")
        paths.push_back(folder.parent_path().string());
    std::set<DirectoryId> ids;
    for (const std::string& path : paths)
        if (const auto id = idOf(path))
            ids.insert(*id);
    return ids;
}

/// Returns the directories of `store` and the files that are folders.
std::set<DirectoryId> contentsOf(const FolderPlace& store) {
    std::set<DirectoryId> contents;
    anyFolder(store, [&](const FolderPlace& place) {
        contents.insert(place.trail.begin(), place.trail.end());
        if (place.kind != FolderPlace::Kind::Directory)
            if (const auto id = idOf(place.path))
                contents.insert(*id);
        return false;
    });
    return contents;
}

}  // namespace

NamedStores::NamedStores(const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
        stores_.push_back(findStore(path));
    // The search through all folders takes time, and a single store overlaps with none.
    if (stores_.size() > 1)
        for (FolderPlace& store : std::exchange(stores_, {}))
            add(std::move(store));
}

void NamedStores::add(FolderPlace store) {
    const auto isIn = [](const std::set<DirectoryId>& contents, const FolderPlace& inner) {
        const std::set<DirectoryId> ids = idsOfStore(inner);
        return std::any_of(ids.begin(), ids.end(),
                           [&](const DirectoryId& id) { return contents.contains(id); });
    };
    if (const auto id = idOf(store.path))
        named_.insert(*id);
    if (std::any_of(contents_.begin(), contents_.end(),
                    [&](const auto& contents) { return isIn(contents, store); }))
        return;
    const std::set<DirectoryId> contents = contentsOf(store);
    std::erase_if(stores_, [&](const FolderPlace& other) { return isIn(contents, other); });
    stores_.push_back(std::move(store));
    // This includes the contents of the stores that were just dropped.
    contents_.push_back(contents);
}

bool NamedStores::isNamed(const FolderPlace& place) const {
    // All folders of a Geary account and all labels of an mbox have the path of the whole.
    const bool hasOwnPath =
        !place.isStore && place.kind != FolderPlace::Kind::Geary && !place.labelled;
    const std::optional<DirectoryId> id = hasOwnPath ? idOf(place.path) : std::nullopt;
    return place.isStore || (id && named_.contains(*id));
}

}  // namespace pelk
