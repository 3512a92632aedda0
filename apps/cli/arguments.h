#pragma once
// The command line.

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "mailstore/mail_store.h"

namespace pelk {

struct Command;

/// The command line is invalid; `what()` says why.
class UsageError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

struct Arguments {
    /// Null means the mail window.
    const Command* command = nullptr;
    std::vector<std::string> operands;
    /// Empty means the user's default data folder.
    std::string dataFolder;
    /// Prints the password of a mail server.
    std::string passwordCommand;
    /// How the mail is read.
    MailStoreOptions mail;
    /// The name after `merge`; empty when there is none.
    std::string name;
    bool yes = false;
    /// The answer to all questions of `import`; without it the user is asked.
    std::optional<bool> answer;
    /// Print only the best links between domains.
    bool best = false;
    /// How many chains `links` prints, and the contacts that no chain may meet.
    std::optional<std::size_t> count;
    std::vector<std::string> without;
    /// Whether `history` prints months instead of years.
    bool byMonth = false;
    /// The contact of `cold`, empty for the user, and the months without an e-mail.
    std::string of;
    int months = 12;
    /// Whether `scan` counts all copies, and the stamp it counts from; empty means the last scan.
    bool copies = false;
    std::string since;
    /// The words after -o, --from, --people and --size, which `graph` and `picture` read; empty
    /// when they are not given.
    std::string output;
    std::string from;
    std::string people;
    std::string size;
    bool json = false;
    /// Leave out mailing lists and robots.
    bool withoutLists = false;
    bool help = false;
    bool version = false;
};

/// Parses the words after the program's name. Throws `UsageError`.
Arguments parseArguments(const std::vector<std::string>& words);

/// The text that `--help` prints.
extern const char* const kHelp;

}  // namespace pelk
