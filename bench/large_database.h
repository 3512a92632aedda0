#pragma once
// The largest database that is measured.

#include <cstddef>
#include <string>

#include "db/numbers.h"

namespace pelk {

inline constexpr std::size_t kMostContacts = kMaxContactId;
inline constexpr std::size_t kManyRelations = 200000;

/// A document with that many contacts, who have the names and addresses of `makePerson`, and that
/// many relations between them, by a power law: the first contact has the most.
std::string makeLargeDocument(std::size_t contacts, std::size_t relations);

}  // namespace pelk
