#pragma once
// Folds the contacts of one person into one.

#include <string>
#include <vector>

#include "db/database.h"

namespace pelk {

/// Those of the contacts that are there, each once, in the order given: the first is the one that
/// stays. Throws `Error` when the document holds several relations between that one and one of the
/// others: nobody knows what the several mean.
std::vector<int> contactsToFold(const Database& database, const std::vector<int>& ids);

/// Folds the contacts behind the first one into it, one after the other, and gives it the name.
/// Requires: `contactsToFold` has returned them.
void foldContacts(Database& database, const std::vector<int>& contacts, const std::string& name);

/// Names the survivor, gives it the addresses and the relations of the other contact, and removes
/// that one. Both must exist.
void mergeContact(Database& database, int survivor, int other, const std::string& name);

/// Moves the relations of the other contact to the survivor. Where both are related to the same
/// partner, the weights are added up.
void moveRelations(Database& database, int survivor, int other);

}  // namespace pelk
