#pragma once
// Keeps two running programs from saving over each other's changes.

#include <string>

#include "platform/desktop/made_folders.h"

namespace pelk {

/// Holds the lock of a folder until it is destroyed or the process ends. It leaves no file behind.
/// Reading needs no lock because files in the folder are only ever replaced whole.
class FolderLock {
 public:
    /// Creates the folder and its missing parents; the destructor removes those that are still
    /// empty. Throws `Error` when another program holds the lock or the folder cannot be opened.
    explicit FolderLock(const std::string& folder);
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    ~FolderLock();

 private:
    MadeFolders made_;
    int descriptor_ = -1;
};

}  // namespace pelk
