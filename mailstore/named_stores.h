#pragma once
// The stores that the user named, without overlaps.

#include <set>
#include <string>
#include <vector>

#include "mailstore/folder_place.h"

namespace pelk {

class NamedStores {
 public:
    /// Drops a store that was named before, or that is inside another one, by whatever path. Throws
    /// an `Error` that names the path if one of `paths` does not exist, cannot be read or holds no
    /// mail of a known kind.
    explicit NamedStores(const std::vector<std::string>& paths);

    const std::vector<FolderPlace>& stores() const { return stores_; }
    /// Returns whether the user named this folder, as a store or inside another store.
    bool isNamed(const FolderPlace& place) const;

 private:
    void add(FolderPlace store);

    std::vector<FolderPlace> stores_;
    /// The files and directories of each store that was searched.
    std::vector<std::set<DirectoryId>> contents_;
    std::set<DirectoryId> named_;
};

}  // namespace pelk
