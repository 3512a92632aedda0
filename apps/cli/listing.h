#pragma once
// What the commands print, as text for people and as JSON for programs.

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
#include "views/strength.h"

class QJsonDocument;

namespace pelk {

/// Any JSON, with line breaks.
void print(std::ostream& out, const QJsonDocument& document);

/// The columns of a relation's class and weight.
std::string strengthColumns(Strength strength, std::int64_t weight);

void printOutcome(std::ostream& out, const ScanOutcome& outcome, const Database& database,
                  bool json);

/// All contacts in alphabetical order.
std::vector<Contact> contactsByName(const Database& database, const Language& language);

/// Contacts, a line each, in the order given.
void printContacts(std::ostream& out, const std::vector<Contact>& contacts, bool json);
/// One contact; as JSON an object, not a list of one.
void printContact(std::ostream& out, const Contact& contact, bool json);

/// The relations of a contact, strongest first, and by the other's id where they are equal.
void printRelations(std::ostream& out, const Database& database, int contactId, bool json);

/// What stands one level below the domain, or at the top for an empty one, in alphabetical order.
std::vector<DomainEntry> domainEntries(const Database& database, const Language& language,
                                       const std::string& domain);

/// A line each; a label is told from an address by a slash behind it.
void printDomains(std::ostream& out, const std::vector<DomainEntry>& entries, bool json);

void printDetails(std::ostream& out, const RelationDetails& details, bool json);

void printThresholds(std::ostream& out, const Thresholds& thresholds, bool json);

/// The `count` strongest relations of all, a line each, for people.
void printStrongest(std::ostream& out, const Database& database, std::size_t count);

/// A document as UTF-8, each tag on a line of its own, so that line-based tools can work on it.
/// What is printed is read as the same document.
void printDocument(std::ostream& out, std::string_view xml);

}  // namespace pelk
