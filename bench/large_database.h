#pragma once
// The largest database of the measurements.

#include <cstddef>
#include <string>

#include "db/numbers.h"

namespace pelk {

inline constexpr std::size_t kMostContacts = kMaxContactId;
inline constexpr std::size_t kManyRelations = 200000;

/// Returns a document with that many contacts from `makePerson` and that many relations, which
/// follow a power law: the first contact has the most.
std::string makeLargeDocument(std::size_t contacts, std::size_t relations);

}  // namespace pelk
