#pragma once
// Creates a folder with its parents, and can remove what it created.

#include <string>
#include <vector>

namespace pelk {

/// The folders that were created, outermost first.
using MadeFolders = std::vector<std::string>;

/// Creates the folder and its missing parents, with access for their owner only. Throws `Error`.
MadeFolders makeFolders(const std::string& path);

/// Removes those of the folders that are empty.
void removeEmpty(const MadeFolders& folders) noexcept;

}  // namespace pelk
