#pragma once
// What users do to contacts, saved: the forms and the command line both act through these.
//
// Each throws `Error`, with nothing changed, when it is refused or no copy can be kept of what it
// removes. `Storage::saveChange` says what comes of a save that fails.

#include <string>
#include <vector>

#include "db/database.h"
#include "db/storage.h"

namespace pelk {

/// Gives the contact another name, which is cleaned of what a document cannot carry. Refused when
/// the name is empty. Does nothing when there is no such contact.
void renameContact(Database& database, Storage& storage, int id, const std::string& name);

/// Removes contacts with all their relations; ids of no contact are passed over.
void deleteContacts(Database& database, Storage& storage, const std::vector<int>& ids);

/// Folds contacts into the first as `foldContacts` does, under a name that is cleaned and not
/// empty. Returns false, with nothing changed, when fewer than two of them are there.
bool mergeContacts(Database& database, Storage& storage, const std::vector<int>& ids,
                   const std::string& name);

}  // namespace pelk
