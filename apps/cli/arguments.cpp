#include "apps/cli/arguments.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace pelk {

const char* const kHelp =
    R"(Pelk shows who is connected to whom by the e-mails that they exchanged.

Usage:
  pelk [MAIL...]           open the mail window on mbox files, Maildir folders,
                           folders of .eml files or folders of all these
  pelk scan MAIL...        count the e-mails that are newer than the last scan
  pelk contacts            list all contacts
  pelk relations CONTACT   list a contact's relations, strongest first: class,
                           weight, id, name
  pelk dump                print the database as a plain XML document
  pelk load FILE           replace the database by a plain XML document; - reads
                           standard input; the old database is kept beside it
  pelk export FILE         write an enciphered copy of the database

CONTACT is an id or an e-mail address.

Options:
  --data DIR       keep the database in DIR/pelk, not in ~/.local/share/pelk
  --json           print JSON
  --outbox NAME    take folders called NAME for the outbox, which is not scanned
  --deleted NAME   take folders called NAME for the deleted items, which are not
                   scanned
  --help, --version

Exit status: 0 done, 1 refused or failed, 2 wrong usage.
)";

namespace {

struct Command {
    std::string_view name;
    std::size_t fewestOperands;
    std::size_t mostOperands;
};

constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

constexpr std::array kCommands{
    Command{"", 0, kAnyNumber}, Command{"scan", 1, kAnyNumber}, Command{"contacts", 0, 0},
    Command{"relations", 1, 1}, Command{"dump", 0, 0},          Command{"load", 1, 1},
    Command{"export", 1, 1},
};

const Command* findCommand(std::string_view name) {
    const auto* const found = std::find_if(kCommands.begin(), kCommands.end(),
                                           [name](const Command& c) { return c.name == name; });
    return found == kCommands.end() ? nullptr : found;
}

/// Walks the words; an option that takes a value takes the next word.
class WordReader {
 public:
    explicit WordReader(const std::vector<std::string>& words) : words_(words) {}

    Arguments read() {
        while (at_ < words_.size())
            readWord(words_[at_++]);
        return std::move(arguments_);
    }

 private:
    void readWord(const std::string& word) {
        if (optionsEnded_ || word.size() < 2 || word.front() != '-')
            readOperand(word);
        else if (word == "--")
            optionsEnded_ = true;
        else
            readOption(word);
    }

    /// The first operand that names a command is one.
    void readOperand(const std::string& word) {
        if (!commandKnown_ && !optionsEnded_ && !word.empty() && findCommand(word) != nullptr)
            arguments_.command = word;
        else
            arguments_.operands.push_back(word);
        commandKnown_ = true;
    }

    void readOption(const std::string& word) {
        if (word == "--json")
            arguments_.json = true;
        else if (word == "--help")
            arguments_.help = true;
        else if (word == "--version")
            arguments_.version = true;
        else if (word == "--data")
            arguments_.dataFolder = value(word);
        else if (word == "--outbox")
            arguments_.outboxNames.push_back(value(word));
        else if (word == "--deleted")
            arguments_.deletedNames.push_back(value(word));
        else
            throw UsageError("unknown option " + word);
    }

    const std::string& value(const std::string& option) {
        if (at_ == words_.size() || words_[at_].empty())
            throw UsageError("option " + option + " needs a value");
        return words_[at_++];
    }

    const std::vector<std::string>& words_;
    std::size_t at_ = 0;
    bool optionsEnded_ = false;
    bool commandKnown_ = false;
    Arguments arguments_;
};

}  // namespace

Arguments parseArguments(const std::vector<std::string>& words) {
    Arguments arguments = WordReader(words).read();
    const Command& command = *findCommand(arguments.command);
    const std::size_t count = arguments.operands.size();
    if (!arguments.help && !arguments.version &&
        (count < command.fewestOperands || count > command.mostOperands))
        throw UsageError("pelk " + arguments.command + " takes " +
                         (command.mostOperands == 0   ? "nothing more"
                          : command.mostOperands == 1 ? "one operand"
                                                      : "at least one operand"));
    return arguments;
}

}  // namespace pelk
