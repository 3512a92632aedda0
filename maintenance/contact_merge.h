#pragma once
// Folds the contacts of one person into one.

#include <string>
#include <vector>

#include "db/database.h"

namespace pelk {

/// Folds the contacts behind the first one into it, one after the other, and gives it the name. An
/// id counts once, and ids of no contact are passed over, so that the first contact which is still
/// there is the one that stays.
///
/// Returns false, with nothing changed, when fewer than two contacts are there. Throws `Error`,
/// with nothing changed, when the document holds several relations between the one that stays and
/// one of the others.
bool mergeContacts(Database& database, const std::vector<int>& ids, const std::string& name);

/// Names the survivor, gives it the addresses and the relations of the other contact, and removes
/// that one. Both must exist.
void mergeContact(Database& database, int survivor, int other, const std::string& name);

/// Moves the relations of the other contact to the survivor. Where both are related to the same
/// partner, the weights are added up.
void moveRelations(Database& database, int survivor, int other);

}  // namespace pelk
