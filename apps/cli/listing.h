#pragma once
// What the commands print, as text for people and as JSON for programs.

#include <cstddef>
#include <iosfwd>
#include <string_view>

#include "db/database.h"
#include "platform/language.h"
#include "scan/scanner.h"

namespace pelk {

void printOutcome(std::ostream& out, const ScanOutcome& outcome, const Database& database,
                  bool json);

/// All contacts in alphabetical order.
void printContacts(std::ostream& out, const Database& database, const Language& language,
                   bool json);

/// The relations of a contact, strongest first, and by the other's id where they are equal.
void printRelations(std::ostream& out, const Database& database, int contactId, bool json);

/// The `count` strongest relations of all, a line each, for people.
void printStrongest(std::ostream& out, const Database& database, std::size_t count);

/// A document as UTF-8, each tag on a line of its own, so that line-based tools can work on it.
void printDocument(std::ostream& out, std::string_view xml);

}  // namespace pelk
