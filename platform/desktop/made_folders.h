#pragma once
// Folders that are made on the way to one that is needed.

#include <string>
#include <vector>

namespace pelk {

/// The folders that had to be made, the outermost first.
using MadeFolders = std::vector<std::string>;

/// Makes the folder with all above it that are missing, open to their owner alone. Throws `Error`.
MadeFolders makeFolders(const std::string& path);

/// Removes those of the folders in which nothing stands.
void removeEmpty(const MadeFolders& folders) noexcept;

}  // namespace pelk
