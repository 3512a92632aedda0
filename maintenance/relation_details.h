#pragma once
// Compares one relation with the strongest one.

#include <cstdint>
#include <optional>
#include <string>

#include "db/database.h"

namespace pelk {

struct RelationDetails {
    /// The names of the two contacts, in the order of the ids passed.
    std::string name1;
    std::string name2;
    std::int64_t weight = 0;
    /// The weight of the strongest relation of the database.
    std::int64_t strongest = 0;

    /// Returns a sentence for the user with both weights.
    std::string sentence() const;
};

/// Returns the relation of two contacts, in any order; nothing when there is none.
std::optional<RelationDetails> relationDetails(const Database& database, int id1, int id2);

}  // namespace pelk
