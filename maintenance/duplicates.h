#pragma once
// Contacts that are likely one person, to suggest merging them.

#include <string>
#include <vector>

#include "db/database.h"
#include "platform/language.h"

namespace pelk {

/// How sure it is that two contacts are one person, from the surest reason on.
enum class DuplicateReason {
    SameAddress,
    SameMailbox,
    SameLocalPart,
    SameName,
    NameInAddress,
    Initials
};

struct Duplicate {
    /// The lower id first.
    int id = 0;
    int otherId = 0;
    DuplicateReason reason = DuplicateReason::SameName;
    /// The reason for the user, with what it rests on: same name in another order.
    std::string text;
};

/// Returns pairs of contacts that are likely one person, the surest first, then by ids.
///
/// A name alone is no reason if it is a single word, or common: if contacts at three or more
/// registered domains have it, or more contacts than one person has. Nor is anything a reason
/// between the addresses of offices and programs, or of people whom their mail domain numbers
/// (ann.smith1, ann.smith2).
///
/// Takes time in proportion to the number of contacts.
std::vector<Duplicate> findDuplicates(const Database& database, const Language& language);

}  // namespace pelk
