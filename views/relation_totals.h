#pragma once
// How many relations and e-mails a contact has.

#include <cstddef>
#include <cstdint>
#include <string>

#include "db/database.h"

namespace pelk {

struct RelationTotals {
    std::size_t relations = 0;
    /// The sum of their weights.
    std::int64_t mails = 0;
    /// The largest of their weights.
    std::int64_t strongest = 0;
};

RelationTotals totalsOf(const Database& database, int contactId);

/// "1 e-mail", "12 e-mails"; likewise for other things.
std::string counted(std::int64_t count, const std::string& thing);

/// The details beside the nodes of the relations view: of a contact "5 relations, 34 e-mails", of a
/// related contact "12 e-mails, ida@x/ida@y", whose addresses its own text does not show.
std::string contactDetail(const Database& database, int contactId);
std::string relatedDetail(const Database& database, int contactId, int relatedId);

}  // namespace pelk
