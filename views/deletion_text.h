#pragma once
// What questions say of the data that an act concerns.

#include <cstddef>
#include <string>
#include <vector>

#include "db/database.h"

namespace pelk {

/// Returns the sizes as "1 contact, 204 relations".
std::string sizeText(std::size_t contacts, std::size_t relations);

/// Returns what the deletion of these contacts, which the user knows by the name `what`, would take
/// away: "example: 51 contacts, 204 relations. Undo brings them back."
std::string deletionText(const Database& database, const std::string& what,
                         const std::vector<int>& ids);

/// Returns the name by which a user knows the contact: its name, else its first address.
std::string nameForUser(const Database& database, int id);

/// Returns what a deletion of the whole database would take away, in the same form.
std::string deletionText(const Database& database);

}  // namespace pelk
