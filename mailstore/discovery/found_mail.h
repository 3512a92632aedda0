#pragma once
// Mail that a program keeps on this computer, as the settings of that program tell.

#include <functional>
#include <string>
#include <vector>

namespace pelk {

struct FoundMail {
    /// "Thunderbird".
    std::string program;
    /// What the program calls the account. UTF-8 as far as the program wrote UTF-8.
    std::string account;
    /// To be opened as a store.
    std::string path;
    /// Why the program's settings could not be followed further; empty when they could.
    std::string fault;
    /// What to tell when nothing below `path` can be read as mail; empty for the usual sentence.
    std::string whenNothing;
    /// Whether no settings name `path`: it is only a usual place for mail. Such an entry is not
    /// shown if there is no mail.
    bool isGuess = false;
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
