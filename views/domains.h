#pragma once
// The mail domains of the contacts' addresses as a hierarchy of labels.

#include <string>
#include <string_view>
#include <vector>

#include "db/database.h"
#include "platform/language.h"

namespace pelk {

/// An entry directly below a domain: a label, which has entries of its own, or an address.
struct DomainEntry {
    /// The label; or the address's local part and owner: ann (Ann Smith).
    std::string text;
    /// The whole address; empty for a label.
    std::string address;

    bool isAddress() const { return !address.empty(); }
};

/// A parsed address, and the name and id of the contact who has it.
struct MailAddress {
    std::string whole;
    /// The local part, then the labels of the domain from left to right.
    std::vector<std::string> parts;
    std::string owner;
    int ownerId = 0;
};

/// Returns all addresses that have a domain, parsed, in document order. Parsing costs far more than
/// searching the result, so callers keep it.
std::vector<MailAddress> mailAddresses(const Database& database, const Language& language);

/// Returns the distinct last labels of all addresses, in order of first appearance.
std::vector<std::string> topLevelDomains(const std::vector<MailAddress>& addresses);

/// Returns the distinct registered names of all addresses (see `registeredDomain`), in order of
/// first appearance.
std::vector<std::string> registeredDomains(const std::vector<MailAddress>& addresses);

/// Returns the ids of the contacts who have an address below a domain, whose labels are given as
/// for `entriesBelow`, each once, in the order of their addresses.
std::vector<int> contactsBelow(const std::vector<MailAddress>& addresses,
                               const std::vector<std::string>& labels);

/// Returns the text of an address below its domain: ann (Ann Smith).
std::string textBelowDomain(const MailAddress& address);

/// Returns the entries directly below a domain, in order of first appearance. `labels` are the
/// domain's from left to right: b, a for b.a. When two contacts share an address, only the first is
/// listed.
std::vector<DomainEntry> entriesBelow(const std::vector<MailAddress>& addresses,
                                      const std::vector<std::string>& labels);

/// Returns the ids of the contacts with an address that ends with `suffix`, each once, in the order
/// of their addresses in the document.
///
/// The suffix need not start at a label: b.a also finds addresses in cb.a, and x@b.a finds yx@b.a.
/// This is on purpose, and all commands on domains agree on it, except the deletion of a registered
/// name, which takes `contactsBelow`.
std::vector<int> contactsBySuffix(const Database& database, std::string_view suffix);

inline constexpr const char* kEmptyDomainMessage = "The domain is empty.";

/// Throws `Error` for a domain that is empty or begins with an empty label: deleting it would
/// delete all contacts, or all contacts in the domains below. Accepts any address.
void requireDeletableDomain(const std::string& domain);

/// Returns the ids of the contacts to delete for a domain or an address: those of
/// `contactsBySuffix`. For an address without a local part, such as @b.a, it returns the owners
/// only, as every address of that domain ends with it. Throws `Error` as `requireDeletableDomain`
/// does.
std::vector<int> contactsToDelete(const Database& database, const std::string& domain);

}  // namespace pelk
