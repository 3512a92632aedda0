#pragma once
// Who is where: the mail domains of the contacts' addresses as a hierarchy of labels.

#include <string>
#include <string_view>
#include <vector>

#include "db/database.h"
#include "platform/language.h"

namespace pelk {

/// What stands directly below a domain: a label, with more below it, or an address.
struct DomainEntry {
    /// The label; or the address's local part and its owner: ann (Ann Smith).
    std::string text;
    /// The whole address; empty for a label.
    std::string address;

    bool isAddress() const { return !address.empty(); }
};

/// An address taken apart, and the name of the contact who has it.
struct MailAddress {
    std::string whole;
    /// The local part, then the labels of the domain from left to right.
    std::vector<std::string> parts;
    std::string owner;
};

/// All addresses that have a domain, in document order. To take them apart costs far more than to
/// look through them.
std::vector<MailAddress> mailAddresses(const Database& database, const Language& language);

/// The last labels of all addresses, in order of first appearance.
std::vector<std::string> topLevelDomains(const std::vector<MailAddress>& addresses);

/// What stands directly below a domain, in order of first appearance. `labels` are the domain's,
/// from left to right: b, a for b.a. Of two contacts with one address the first is listed.
std::vector<DomainEntry> entriesBelow(const std::vector<MailAddress>& addresses,
                                      const std::vector<std::string>& labels);

/// The ids of the contacts that own an address which ends with the text, each once, in the order
/// of the addresses in the document.
///
/// Any text that ends so counts, label or not: b.a finds the owner of an address in cb.a, too, and
/// x@b.a the owner of yx@b.a. This is on purpose, and all commands on domains agree on it.
std::vector<int> contactsBySuffix(const Database& database, std::string_view suffix);

inline constexpr const char* kEmptyDomainMessage = "The domain is empty.";

/// Throws `Error` for a domain, not an address, that is empty or begins with an empty label:
/// everybody would be deleted with it, or everybody in the domains below.
void requireDeletableDomain(const std::string& domain);

/// The ids of the contacts that are deleted with a domain, or with the contact who owns an address:
/// those of `contactsBySuffix`. Of an address without a local part, which begins with the "@", only
/// the owners count, as every address of its domain ends so. Throws `Error` as
/// `requireDeletableDomain` does.
std::vector<int> contactsToDelete(const Database& database, const std::string& domain);

}  // namespace pelk
