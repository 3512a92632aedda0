#pragma once
// What the user named, each mail in it once.

#include <set>
#include <string>
#include <vector>

#include "mailstore/folder_place.h"

namespace pelk {

class NamedStores {
 public:
    /// A store that is named twice, or that another one holds, by whatever path, is left to the
    /// first, or to the other. Fails with an `Error` that names the path when one of `paths` does
    /// not exist, cannot be read or holds no mail of a known kind.
    explicit NamedStores(const std::vector<std::string>& paths);

    const std::vector<FolderPlace>& stores() const { return stores_; }
    /// Whether the user named this folder, be it a store or a folder in one.
    bool isNamed(const FolderPlace& place) const;

 private:
    void add(FolderPlace store);

    std::vector<FolderPlace> stores_;
    /// What the folders of each store that was looked through are on disk.
    std::vector<std::set<DirectoryId>> contents_;
    std::set<DirectoryId> named_;
};

}  // namespace pelk
