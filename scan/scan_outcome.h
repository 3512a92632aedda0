#pragma once
// The result of a scan.

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/mail_client.h"

namespace pelk {

/// A store that the scan found for the first time, or at a new place.
struct NewStore {
    std::string name;
    /// For a recognised store, the stamp after which its e-mails were counted; otherwise empty.
    std::string since;
};

/// A default folder whose items were not counted.
struct LeftOutFolder {
    std::string name;
    /// Nothing when the folder cannot be read.
    std::optional<int> mails;
};

struct ScanOutcome {
    /// What the scan added to the database.
    int mails = 0;
    std::size_t contacts = 0;
    std::size_t relations = 0;
    /// Some people were not added because the database is full.
    bool databaseFull = false;
    /// The number of read errors, each of which ended one step, and the message of the first.
    int faults = 0;
    std::string firstFault;
    /// Some e-mails could not be read, and a later scan counts them when it can read them.
    bool unreadCountsLater = false;

    /// One sentence for each folder whose mail is in an unknown format.
    std::vector<std::string> unknownFormats;
    /// Empty when no store has been counted before this scan.
    std::vector<NewStore> newStores;
    /// The default folders left out, except those known to be empty.
    std::vector<LeftOutFolder> leftOut;
    /// New e-mails that were not counted because of their labels.
    std::map<DefaultFolder, int> labelled;
    /// New e-mails that were not counted because an earlier folder of the store has them, too.
    int copies = 0;
    /// Addresses with an apostrophe, which cannot become contacts.
    std::set<std::string> apostrophes;
};

}  // namespace pelk
