#pragma once
// Merges the contacts of one person into one contact.

#include <string>
#include <vector>

#include "db/database.h"

namespace pelk {

/// Returns the ids that have contacts, each once, in the order given. The first one survives the
/// merge. Throws `Error` when the document has several relations between it and one of the others.
std::vector<int> contactsToFold(const Database& database, const std::vector<int>& ids);

/// Merges the other contacts into the first, in order, and gives it the name. Requires: `contacts`
/// comes from `contactsToFold`.
void foldContacts(Database& database, const std::vector<int>& contacts, const std::string& name);

/// Renames the survivor, moves the addresses and relations of the other contact to it, and removes
/// the other. Requires: both exist.
void mergeContact(Database& database, int survivor, int other, const std::string& name);

/// Moves the relations of the other contact to the survivor. Adds up the weights where both are
/// related to the same partner.
void moveRelations(Database& database, int survivor, int other);

}  // namespace pelk
