#pragma once
// Mail of one program on this computer, found by the settings of that program.

#include <functional>
#include <string>
#include <vector>

namespace pelk {

struct FoundMail {
    /// The name of the program, such as "Thunderbird".
    std::string program;
    /// The program's name for the account. UTF-8 if the program wrote UTF-8.
    std::string account;
    /// The path to open as a store.
    std::string path;
    /// Why the program's settings could not be read; empty if they could.
    std::string fault;
    /// The message for a path without readable mail; empty for the usual message.
    std::string whenNothing;
    /// Whether `path` is only a usual place for mail that no settings name. Such an entry is hidden
    /// if it has no mail.
    bool isGuess = false;
    /// The folders for deleted items and for mail to be sent, as the program's settings name them:
    /// the names from the top of the account, with "/" between them. Empty if no setting does.
    std::string deletedItems = {};
    std::string outbox = {};
    /// The user's own addresses, as the program's settings name them.
    std::vector<std::string> ownAddresses = {};
};

using MailList = std::vector<FoundMail>;

/// Returns whether it is certain that nothing exists at `path`.
bool isAbsent(const std::string& path);

/// Runs `look`, which reads the settings of `program` at `path`, unless they are absent. If it
/// throws an `Error`, adds an entry to `list` that says why.
void lookInto(MailList& list, const std::string& program, const std::string& path,
              const std::function<void()>& look);

/// Returns the text of a settings file. Throws an `Error` if the file cannot be read, or is larger
/// than 16 MiB.
std::string readSettingsFile(const std::string& path);

}  // namespace pelk
