#pragma once
// Suggests a name for the contact that a merge results in.

#include <string>
#include <vector>

#include "db/database.h"

namespace pelk {

/// Returns the name that all these contacts have. Empty if the names differ, or if there are fewer
/// than two contacts.
std::string sharedName(const Database& database, const std::vector<int>& ids);

}  // namespace pelk
