#pragma once
// What has come of a scan.

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/mail_client.h"

namespace pelk {

/// A store that the scan met for the first time, or at a new place.
struct NewStore {
    std::string name;
    /// From when on its e-mails were counted if it was known again; empty if it was not.
    std::string since;
};

/// A folder whose items were not counted, as it has a purpose of its own.
struct LeftOutFolder {
    std::string name;
    /// Nothing when it cannot be read.
    std::optional<int> mails;
};

struct ScanOutcome {
    /// What the database gained.
    int mails = 0;
    std::size_t contacts = 0;
    std::size_t relations = 0;
    /// Some people could not be added because the database holds no more contacts.
    bool databaseFull = false;
    /// Steps that were abandoned because the mail could not be read, and why the first of them was.
    int faults = 0;
    std::string firstFault;
    /// Whole e-mails could not be read, and a later scan counts them if it can read them.
    bool unreadCountsLater = false;

    /// When other stores had been counted before.
    std::vector<NewStore> newStores;
    /// Those that are not known to be empty.
    std::vector<LeftOutFolder> leftOut;
    /// New e-mails that were not counted because of their labels.
    std::map<DefaultFolder, int> labelled;
    /// New e-mails that were not counted because another folder of the store has them, too.
    int copies = 0;
    /// Addresses with an apostrophe, whose owners are no contacts.
    std::set<std::string> apostrophes;
};

}  // namespace pelk
