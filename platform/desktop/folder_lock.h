#pragma once
// Keeps two running programs from saving over each other's changes.

#include <string>

#include "platform/desktop/made_folders.h"

namespace pelk {

/// Holds a folder for one program, until it is destroyed or the program ends in any way. It leaves
/// no file behind. Reading needs no lock: a file in the folder is only ever replaced whole.
class FolderLock {
 public:
    /// Creates the folder, and those above it, if they are missing; they go at the end if nothing
    /// came into them. Throws `Error` when another program holds the folder, or it cannot be
    /// opened.
    explicit FolderLock(const std::string& folder);
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    ~FolderLock();

 private:
    MadeFolders made_;
    int descriptor_ = -1;
};

}  // namespace pelk
