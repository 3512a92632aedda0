#pragma once
// Edits contacts and saves the database, for the forms and the command line. Each edit is one step
// that can be undone.
//
// Each function changes nothing and throws `Error` when the edit is invalid, or when it removes
// data and the backup fails. `Storage::saveChange` describes a failed save.

#include <string>
#include <vector>

#include "db/database.h"
#include "db/storage.h"

namespace pelk {

/// Renames a contact, with `cleanText(name)`. A name that is then empty is invalid. Does nothing
/// when there is no such contact.
void renameContact(Database& database, Storage& storage, int id, const std::string& name);

/// Removes contacts with all their relations. Skips ids without a contact. `what` names them in the
/// step's name, for example by their domain.
void deleteContacts(Database& database, Storage& storage, const std::vector<int>& ids,
                    const std::string& what = "contacts");

/// Merges contacts into the first one as `foldContacts` does, under `cleanText(name)`, which must
/// not be empty. Changes nothing and returns false when fewer than two of them exist.
bool mergeContacts(Database& database, Storage& storage, const std::vector<int>& ids,
                   const std::string& name);

}  // namespace pelk
