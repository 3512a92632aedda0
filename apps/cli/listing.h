#pragma once
// The output of the commands: text for people, JSON for programs.

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "db/database.h"
#include "maintenance/relation_details.h"
#include "platform/language.h"
#include "scan/scanner.h"
#include "views/domains.h"
#include "views/hidden_contacts.h"
#include "views/strength.h"

class QJsonDocument;

namespace pelk {

/// Prints a JSON document, indented.
void print(std::ostream& out, const QJsonDocument& document);

/// Returns the columns with a relation's class and weight.
std::string strengthColumns(Strength strength, std::int64_t weight);

void printOutcome(std::ostream& out, const ScanOutcome& outcome, const Database& database,
                  bool json);

/// Returns all contacts in alphabetical order.
std::vector<Contact> contactsByName(const Database& database, const Language& language);

/// Prints one contact per line, in the order given.
void printContacts(std::ostream& out, const std::vector<Contact>& contacts, bool json);
/// Prints one contact; as JSON an object rather than an array.
void printContact(std::ostream& out, const Contact& contact, bool json);

/// Prints the relations of a contact by descending weight, then by the other contact's id. Leaves
/// out those with the contacts in `leftOut`.
void printRelations(std::ostream& out, const Database& database, int contactId,
                    const HiddenContacts::Ids& leftOut, bool json);

/// Returns the entries one level below the domain, or the top level for an empty one, in
/// alphabetical order, without the addresses of the contacts in `leftOut`.
std::vector<DomainEntry> domainEntries(const Database& database, const Language& language,
                                       const std::string& domain,
                                       const HiddenContacts::Ids& leftOut);

/// Prints one entry per line. A slash after a label distinguishes it from an address.
void printDomains(std::ostream& out, const std::vector<DomainEntry>& entries, bool json);

void printDetails(std::ostream& out, const RelationDetails& details, bool json);

void printThresholds(std::ostream& out, const Thresholds& thresholds, bool json);

/// Prints the `count` strongest relations, one per line, for people.
void printStrongest(std::ostream& out, const Database& database, std::size_t count);

/// Prints a document as UTF-8 with each tag on a line of its own, for line-based tools. The output
/// parses as the same document.
void printDocument(std::ostream& out, std::string_view xml);

}  // namespace pelk
