#include "apps/cli/arguments.h"

#include <cstddef>

#include "apps/cli/commands.h"
#include "db/date_stamp.h"
#include "db/numbers.h"

namespace pelk {

const char* const kHelp =
    R"(Pelk shows who is connected to whom by the e-mails that they exchanged.

Usage:
  pelk [MAIL...]           open the mail window on mbox files, Maildir folders,
                           message files, the folders of a mail program, or
                           the imaps:// addresses of accounts on servers;
                           without MAIL on the mail that was opened last, or on
                           a list of the mail on this computer
  pelk stores              list the mail of the mail programs on this computer:
                           program, account, folders, size, last change, path
  pelk scan MAIL...        count the e-mails that are newer than the last scan
  pelk scan imaps://USER@HOST[:PORT][/FOLDER]...
                           count the e-mails of accounts on IMAP servers, and
                           of mail on this computer if paths are given, too
  pelk contacts            list all contacts
  pelk relations CONTACT   list a contact's relations, strongest first: class,
                           weight, id, name
  pelk domains [DOMAIN]    list the entries one level below a domain, or the top
                           level: labels with a slash, addresses with owners
  pelk details CONTACT CONTACT
                           print how strong the relation of two contacts is
  pelk history CONTACT [CONTACT]
                           print the days of the first and the last e-mail of
                           two contacts, or of one with all others, and for
                           each year the e-mails sent and received
  pelk cold                list the contacts with whom you had a strong or
                           medium relation and no e-mail for a year, strongest
                           first: class, weight, id, last e-mail, name
  pelk rename CONTACT NAME give a contact another name
  pelk delete CONTACT...   delete contacts with all their relations
  pelk delete-domain DOMAIN
                           list all contacts with an address that ends in
                           DOMAIN, and delete them if --yes is given
  pelk merge --name NAME CONTACT CONTACT...
                           merge the other contacts into the first, which gets
                           the name, all addresses, and all relations with
                           their weights added up
  pelk thresholds [STRONG WEAK]
                           print or set the two percentages of the strongest
                           relation's weight: a relation above STRONG is
                           strong, one up to WEAK is weak
  pelk links CONTACT CONTACT
                           print the best chain between two contacts; with
                           --count the best ones, with --without those that
                           avoid some contacts
  pelk domain-links DOMAIN DOMAIN
                           print the best chains between the contacts of two
                           mail domains or addresses; Ctrl-C stops the search
                           and prints those found so far
  pelk picture [CONTACT] -o FILE
                           draw who is connected to whom in groups, or the
                           people around a contact: .svg, .png or .pdf
  pelk graph -o FILE       write people and relations for other programs, in
                           the format of the ending: .graphml, .gexf, .csv
                           (two files, FILE-nodes.csv and FILE-edges.csv),
                           .dot, .gv, .json, or contacts alone as .vcf
  pelk duplicates          list pairs of contacts that are likely one person, the
                           surest first, each with the reason
  pelk lists               list the addresses that are mailing lists or robots:
                           e-mails, kind, address, and why
  pelk me [ADDRESS...|auto]
                           print your own addresses, which a scan finds; set
                           them; or let a scan find them again
  pelk dump                print the database as a plain XML document
  pelk load FILE           replace the database with a plain XML document (-
                           reads standard input) and keep the old one beside it
  pelk export FILE         write an encrypted copy of the database
  pelk import FILE         add an exported database to this one
  pelk delete-database     delete the whole database if --yes is given

CONTACT is an id or an e-mail address. Before contacts are deleted or merged,
and before an import, Pelk keeps a copy of the database as pelk.db.bak; the two
previous copies are pelk.db.bak-2 and pelk.db.bak-3.

Options:
  --data DIR       keep the database in DIR/pelk instead of ~/.local/share/pelk
  --json           print JSON
  --without-lists  with contacts, relations, domains, cold, picture and graph:
                   leave out mailing lists and robots
  --since DATE     with scan: count the e-mails that came after DATE (YYYY-MM-DD
                   or YYYY-MM-DDTHH:MM:SS) instead of after the last scan;
                   e-mails since DATE that were counted before count again
  --password-command COMMAND
                   with a mail server: run COMMAND, and use the first line of
                   its output as the password; COMMAND finds the address of
                   the server in $PELK_SERVER
  --by PERIOD      with history: print the e-mails of each year or month
  --of CONTACT     with cold: list whom CONTACT has lost sight of
  --months NUMBER  with cold: the months without an e-mail, instead of 12
  --copies         with scan: count an e-mail in every folder that contains it
  --name NAME      with merge: the name of the merged contact
  --yes            really delete the contacts of a domain, or the database
  --count NUMBER   with links: print the best NUMBER chains, at most 1000
  --without CONTACT...
                   with links: only chains that avoid these contacts; all words
                   up to the next option are contacts
  --best           print only the best links between two domains
  --ok, --cancel   give this answer to all questions of an import
  -o FILE          with picture and graph: the file to write
  --from CLASS     with picture and graph: only relations that are strong, or
                   from medium, or from weak on, which is all
  --people N       with picture and graph: only the N people with most e-mails,
                   or around a contact those with most e-mails with it
  --size WxH       with picture: its width and height, 1200x900 unless given
  --outbox NAME    treat a top-level folder called NAME as the outbox, which is
                   not scanned
  --deleted NAME   treat a top-level folder called NAME as the deleted items,
                   which are not scanned
  --drafts, --junk also scan the drafts, the junk
  --help, --version

Exit status: 0 success, 1 refused or failed, 2 wrong usage.
)";

namespace {

/// The length of YYYY-MM-DD, which sorts before all stamps of that day.
constexpr std::size_t kDateSize = 10;

/// Iterates over the words. An option with a value takes the next word.
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

    /// The first operand is a command if it names one.
    void readOperand(const std::string& word) {
        if (!commandKnown_ && !optionsEnded_)
            arguments_.command = findCommand(word);
        if (commandKnown_ || arguments_.command == nullptr)
            arguments_.operands.push_back(word);
        commandKnown_ = true;
    }

    void readOption(const std::string& word) {
        if (word == "--json")
            arguments_.json = true;
        else if (word == "--without-lists")
            arguments_.withoutLists = true;
        else if (word == "--yes")
            arguments_.yes = true;
        else if (word == "--ok" || word == "--cancel")
            arguments_.answer = word == "--ok";
        else if (word == "--best")
            arguments_.best = true;
        else if (word == "--copies")
            arguments_.copies = true;
        else if (word == "--since")
            arguments_.since = date(word);
        else if (word == "--name")
            arguments_.name = value(word);
        else if (word == "-o")
            arguments_.output = value(word);
        else if (word == "--from")
            arguments_.from = value(word);
        else if (word == "--people")
            arguments_.people = value(word);
        else if (word == "--size")
            arguments_.size = value(word);
        else if (word == "--help")
            arguments_.help = true;
        else if (word == "--version")
            arguments_.version = true;
        else if (word == "--data")
            arguments_.dataFolder = value(word);
        else if (word == "--password-command")
            arguments_.passwordCommand = value(word);
        else if (word == "--outbox")
            arguments_.mail.outboxNames.push_back(value(word));
        else if (word == "--deleted")
            arguments_.mail.deletedNames.push_back(value(word));
        else if (word == "--drafts")
            arguments_.mail.countDrafts = true;
        else if (word == "--junk")
            arguments_.mail.countJunk = true;
        else if (!readLinksOption(word) && !readTimeOption(word))
            throw UsageError("unknown option " + word);
    }

    bool readLinksOption(const std::string& word) {
        if (word == "--count")
            arguments_.count = number(word, 1000);
        else if (word == "--without")
            readContacts(word, arguments_.without);
        else
            return false;
        return true;
    }

    bool readTimeOption(const std::string& word) {
        if (word == "--by")
            arguments_.byMonth = isMonth(word);
        else if (word == "--of")
            arguments_.of = value(word);
        else if (word == "--months")
            arguments_.months = static_cast<int>(number(word, 1200));
        else
            return false;
        return true;
    }

    bool isMonth(const std::string& option) {
        const std::string& period = value(option);
        if (period != "month" && period != "year")
            throw UsageError("option " + option + " takes year or month");
        return period == "month";
    }

    /// Takes all words up to the next option, at least one.
    void readContacts(const std::string& option, std::vector<std::string>& contacts) {
        do
            contacts.push_back(value(option));
        while (at_ < words_.size() && !words_[at_].starts_with('-'));
    }

    std::size_t number(const std::string& option, int most) {
        const std::string& text = value(option);
        if (const std::optional<int> number = wholeNumber(text, most))
            return static_cast<std::size_t>(*number);
        throw UsageError("option " + option + " takes a number from 1 to " + std::to_string(most));
    }

    const std::string& value(const std::string& option) {
        if (at_ == words_.size() || words_[at_].empty())
            throw UsageError("option " + option + " needs a value");
        return words_[at_++];
    }

    std::string date(const std::string& option) {
        std::string text = value(option);
        if (!isStamp(text.size() == kDateSize ? text + "T00:00:00" : text))
            throw UsageError("option " + option +
                             " takes a date, YYYY-MM-DD or YYYY-MM-DDTHH:MM:SS");
        return text;
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
    const Command* const command = arguments.command;
    const std::size_t count = arguments.operands.size();
    if (command != nullptr && !arguments.help && !arguments.version &&
        (count < command->fewestOperands || count > command->mostOperands))
        throw UsageError(std::string("pelk ") + command->name + " takes " + command->operands);
    return arguments;
}

}  // namespace pelk
