#include "scan/scan_notes.h"

#include "db/database.h"

namespace pelk {
namespace {

std::string counted(std::size_t number, const char* one, const char* several) {
    return std::to_string(number) + " " + (number == 1 ? one : several);
}

std::string eMails(int number) {
    return counted(static_cast<std::size_t>(number), "e-mail", "e-mails");
}

std::vector<std::string> notesWithoutCopies(const ScanOutcome& outcome) {
    std::vector<std::string> notes;
    for (const NewStore& store : outcome.newStores)
        notes.push_back(store.name + (store.since.empty()
                                          ? ": counted for the first time"
                                          : ": recognised, counted since " + store.since));
    for (const std::string& sentence : outcome.unknownFormats)
        notes.push_back("left out: " + sentence.substr(0, sentence.rfind('.')));
    for (const LeftOutFolder& folder : outcome.leftOut)
        notes.push_back("left out: " + folder.name +
                        (folder.mails ? " (" + eMails(*folder.mails) + ")" : ""));
    for (const auto& [kind, mails] : outcome.labelled)
        notes.push_back(std::string("left out: labelled ") + nameOf(kind) + " (" + eMails(mails) +
                        ")");
    if (!outcome.apostrophes.empty())
        notes.push_back("left out: " + counted(outcome.apostrophes.size(), "person", "people") +
                        " with an apostrophe in the address");
    return notes;
}

}  // namespace

const char* nameOf(DefaultFolder kind) {
    switch (kind) {
        case DefaultFolder::Outbox:
            return "Outbox";
        case DefaultFolder::DeletedItems:
            return "Trash";
        case DefaultFolder::Drafts:
            return "Drafts";
        case DefaultFolder::Junk:
            break;
    }
    return "Junk";
}

std::vector<std::string> scanNotes(const ScanOutcome& outcome) {
    std::vector<std::string> notes = notesWithoutCopies(outcome);
    if (outcome.copies > 0)
        notes.push_back("copies in other folders: " + std::to_string(outcome.copies));
    return notes;
}

std::string databaseFullMessage() {
    return std::string(ContactLimitReached().what()) +
           " People who first appeared in this scan have been left out; everything else has been "
           "counted.";
}

std::vector<std::string> scanWarnings(const ScanOutcome& outcome) {
    std::vector<std::string> warnings;
    if (outcome.databaseFull)
        warnings.push_back(databaseFullMessage());
    if (outcome.faults > 0)
        warnings.push_back(
            (outcome.faults == 1 ? "Something could not be read: "
                                 : "Something could not be read, " +
                                       std::to_string(outcome.faults) + " times in all. First: ") +
            outcome.firstFault +
            (outcome.unreadCountsLater ? " Later scans count the e-mails that could not be read."
                                       : ""));
    return warnings;
}

std::string scanSummary(const ScanOutcome& outcome) {
    std::string summary =
        outcome.mails == 0
            ? "No new e-mails"
            : counted(static_cast<std::size_t>(outcome.mails), "new e-mail", "new e-mails") + ", " +
                  counted(outcome.contacts, "new contact", "new contacts") + ", " +
                  counted(outcome.relations, "new relation", "new relations");
    if (!outcome.leftOut.empty())
        summary += ", " + counted(outcome.leftOut.size(), "folder", "folders") + " left out";
    return summary + ".";
}

std::string scanMessage(const ScanOutcome& outcome) {
    std::vector<std::string> lines = scanWarnings(outcome);
    if (lines.empty()) {
        if (notesWithoutCopies(outcome).empty())
            return {};
        lines.emplace_back("The scan is done.");
    }
    for (std::string& note : scanNotes(outcome))
        lines.push_back(std::move(note));
    std::string message;
    for (const std::string& line : lines)
        message += (message.empty() ? "" : "\n") + line;
    return message;
}

}  // namespace pelk
