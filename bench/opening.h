#pragma once
// The largest database as a file, and the minimal work that opens it.

#include <string>

#include "db/storage.h"
#include "platform/desktop/desktop_platform.h"

namespace pelk {

/// A data folder with the largest database.
class LargeStore {
 public:
    explicit LargeStore(const std::string& folder);

    DesktopPlatform desktop;
    Platform platform;
    Storage storage;
    /// The path of the database's file.
    std::string path;
};

/// Returns free memory to the system, as a program that opens its database has just started and has
/// to request its memory.
void giveMemoryBack();

/// Decrypts and parses without any checks or indexes.
class BareOpening {
 public:
    /// Encrypts the text once; each `run` decrypts it.
    explicit BareOpening(std::string xml);
    void run() const;

 private:
    std::string encoded_;
};

}  // namespace pelk
