#pragma once
// The command line.

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "mailstore/mail_store.h"

namespace pelk {

struct Command;

/// The command line cannot be understood; `what()` says why.
class UsageError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

struct Arguments {
    /// Null for the mail window.
    const Command* command = nullptr;
    std::vector<std::string> operands;
    /// Empty for the user's usual data folder.
    std::string dataFolder;
    /// Where the mail is read.
    MailStoreOptions mail;
    /// The name that `merge` gives; empty when there is none.
    std::string name;
    bool yes = false;
    /// What `import` answers to its questions; nothing to ask the user.
    std::optional<bool> answer;
    /// Of the links between domains only the best.
    bool best = false;
    /// Whether `scan` counts all copies, and what it counts from; empty for the last scan.
    bool copies = false;
    std::string since;
    bool json = false;
    bool help = false;
    bool version = false;
};

/// Reads the words behind the program's name. Throws `UsageError`.
Arguments parseArguments(const std::vector<std::string>& words);

/// What `--help` prints.
extern const char* const kHelp;

}  // namespace pelk
