#pragma once
// The largest database as a file, and the minimal work that opens it.

#include <string>

#include "db/storage.h"
#include "platform/desktop/desktop_platform.h"

namespace pelk {

/// Gives the scripted answer and shows nothing.
class SilentDialogs : public Dialogs {
 public:
    /// The text that the user types next.
    std::string answer;

    Answer message(const std::string& text, Buttons buttons) override;
    std::string input(const std::string&, const std::string&, const std::string&) override {
        return answer;
    }
    std::string openFile(const std::string&, const std::string&) override { return {}; }
    std::string saveFile(const std::string&, const std::string&) override { return {}; }
};

/// A data folder with the largest database.
class LargeStore {
 public:
    explicit LargeStore(const std::string& folder);

    SilentDialogs dialogs;
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
