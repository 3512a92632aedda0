#pragma once
// How strong one relation is, beside the strongest of all.

#include <cstdint>
#include <optional>
#include <string>

#include "db/database.h"

namespace pelk {

struct RelationDetails {
    /// The names of the two contacts, in the order in which they were asked for.
    std::string name1;
    std::string name2;
    std::int64_t weight = 0;
    /// The weight of the strongest relation of the database.
    std::int64_t strongest = 0;

    /// Both weights, said to the user.
    std::string sentence() const;
};

/// The relation of two contacts, in any order; nothing when there is none.
std::optional<RelationDetails> relationDetails(const Database& database, int id1, int id2);

}  // namespace pelk
