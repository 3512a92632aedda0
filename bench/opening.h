#pragma once
// The largest database as a file of the program, and the least work that opens it.

#include <string>

#include "db/storage.h"
#include "platform/desktop/desktop_platform.h"

namespace pelk {

/// Answers what it was told to, and shows nothing.
class SilentDialogs : public Dialogs {
 public:
    /// What the user types next.
    std::string answer;

    Answer message(const std::string& text, Buttons buttons) override;
    std::string input(const std::string&, const std::string&, const std::string&) override {
        return answer;
    }
    std::string openFile(const std::string&, const std::string&) override { return {}; }
    std::string saveFile(const std::string&, const std::string&) override { return {}; }
    void copyToClipboard(const std::string&) override {}
    void setBusyPointer(bool) override {}
    void processPendingEvents() override {}
};

/// A data folder that holds the largest database.
class LargeStore {
 public:
    explicit LargeStore(const std::string& folder);

    SilentDialogs dialogs;
    DesktopPlatform desktop;
    Platform platform;
    Storage storage;
    /// The database's file.
    std::string path;
};

/// Gives memory back to the system. A program that opens its database has just started, and gets
/// its memory from there.
void giveMemoryBack();

/// Decrypting and parsing alone, with nothing checked and nothing kept.
class BareOpening {
 public:
    /// Encrypts the text once, to be decrypted by each run.
    explicit BareOpening(std::string xml);
    void run() const;

 private:
    std::string encoded_;
};

}  // namespace pelk
