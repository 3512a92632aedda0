#pragma once
// Merges an imported database into the current one. Contacts are matched by address, never by id;
// the weights of their relations are added up.

#include <string>

#include "db/database.h"

namespace pelk {

/// Receives the questions and the progress of an import, on the thread of the import.
class ImportGuide {
 public:
    virtual ~ImportGuide() = default;
    /// Called when the addresses of an imported contact belong to several contacts. Returns whether
    /// the user answers OK.
    virtual bool confirmsMerge(const std::string& question) = 0;
    /// Called before each contact and each relation.
    virtual void itemStarted() {}
};

/// Merges `imported` into `current` and returns true.
///
/// If the addresses of an imported contact belong to several contacts, Cancel leaves it and its
/// relations out. OK ends the import with the result false: users merge existing contacts
/// themselves. In that case, and when an `Error` is thrown, `current` is partly changed, so callers
/// pass a copy.
///
/// Relations whose contacts cannot be found, or are now the same contact, are left out. Unlike a
/// scan, an import accepts addresses with an apostrophe.
bool importMerge(Database& current, const Database& imported, ImportGuide& guide);

}  // namespace pelk
