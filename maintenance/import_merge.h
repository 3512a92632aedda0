#pragma once
// Folds an imported database into the current one: contacts are matched by their addresses, never
// by their ids, and the weights of their relations are added up.

#include <string>

#include "db/database.h"

namespace pelk {

/// What an import asks and tells while it runs.
class ImportGuide {
 public:
    virtual ~ImportGuide() = default;
    /// The addresses of one imported contact belong to several contacts: OK (true) or Cancel.
    virtual bool confirmsMerge(const std::string& question) = 0;
    /// Before each contact and each relation.
    virtual void itemStarted() {}
};

/// Folds `imported` into `current`.
///
/// An imported contact whose addresses belong to several contacts is left out, with its relations,
/// when the guide answers Cancel. An OK ends the import, and false is returned: merging people on
/// the word of a file is left to the user's own hand. Then, and when an `Error` is thrown,
/// `current` is changed in part: work on a copy.
///
/// A relation whose contacts cannot be found, or have become one person, is left out.
///
/// An address may hold an apostrophe, which no scan lets in: the person is imported like any other.
bool importMerge(Database& current, const Database& imported, ImportGuide& guide);

}  // namespace pelk
