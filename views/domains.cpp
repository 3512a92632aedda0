#include "views/domains.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "views/email_parser.h"
#include "views/registered_domain.h"

namespace pelk {
namespace {

template <typename Visit>
void forEachAddress(const Database& database, const Visit& visit) {
    database.forEachContact([&visit](const Contact& contact) {
        for (const std::string& address : contact.addresses)
            visit(contact, address);
    });
}

/// Whether the address lies below the domain, so that it has at least one more part.
bool isBelow(const std::vector<std::string>& parts, const std::vector<std::string>& labels) {
    return parts.size() > labels.size() &&
           std::equal(labels.rbegin(), labels.rend(), parts.rbegin());
}

}  // namespace

std::vector<MailAddress> mailAddresses(const Database& database, const Language& language) {
    std::vector<MailAddress> addresses;
    forEachAddress(database, [&](const Contact& contact, const std::string& address) {
        if (std::optional<std::vector<std::string>> parts = splitAddress(address, language))
            addresses.push_back({address, std::move(*parts), contact.name, contact.id});
    });
    return addresses;
}

std::vector<std::string> topLevelDomains(const std::vector<MailAddress>& addresses) {
    std::vector<std::string> labels;
    std::unordered_set<std::string_view> seen;
    for (const MailAddress& address : addresses)
        if (seen.insert(address.parts.back()).second)
            labels.push_back(address.parts.back());
    return labels;
}

std::vector<std::string> registeredDomains(const std::vector<MailAddress>& addresses) {
    std::vector<std::string> names;
    std::unordered_set<std::string> seen;
    std::unordered_set<std::string> seenDomains;
    for (const MailAddress& address : addresses) {
        std::string domain = address.parts.at(1);
        for (std::size_t part = 2; part < address.parts.size(); ++part)
            domain += "." + address.parts[part];
        if (!seenDomains.insert(domain).second)
            continue;
        std::string name(registeredDomain(domain));
        if (seen.insert(name).second)
            names.push_back(std::move(name));
    }
    return names;
}

std::vector<int> contactsBelow(const std::vector<MailAddress>& addresses,
                               const std::vector<std::string>& labels) {
    std::vector<int> owners;
    std::unordered_set<int> seen;
    for (const MailAddress& address : addresses)
        if (isBelow(address.parts, labels) && seen.insert(address.ownerId).second)
            owners.push_back(address.ownerId);
    return owners;
}

std::string textBelowDomain(const MailAddress& address) {
    return address.parts.front() + " (" + address.owner + ")";
}

std::vector<DomainEntry> entriesBelow(const std::vector<MailAddress>& addresses,
                                      const std::vector<std::string>& labels) {
    std::vector<DomainEntry> entries;
    std::unordered_set<std::string_view> seenLabels;
    std::unordered_set<std::string_view> seenLocalParts;
    for (const MailAddress& address : addresses) {
        if (!isBelow(address.parts, labels))
            continue;
        const std::size_t next = address.parts.size() - labels.size() - 1;
        const std::string& part = address.parts[next];
        if (next > 0 && seenLabels.insert(part).second)
            entries.push_back({part, {}});
        else if (next == 0 && seenLocalParts.insert(part).second)
            entries.push_back({textBelowDomain(address), address.whole});
    }
    return entries;
}

std::vector<int> contactsBySuffix(const Database& database, std::string_view suffix) {
    std::vector<int> ids;
    std::unordered_set<int> seen;
    forEachAddress(database, [&](const Contact& contact, const std::string& address) {
        if (address.ends_with(suffix) && seen.insert(contact.id).second)
            ids.push_back(contact.id);
    });
    return ids;
}

void requireDeletableDomain(const std::string& domain) {
    if (domain.empty())
        throw Error(kEmptyDomainMessage);
    const bool isAddress = domain.find('@') != std::string::npos;
    if (domain.front() == '.' && !isAddress)
        throw Error("The domain " + domain + " begins with an empty label.");
}

std::vector<int> contactsToDelete(const Database& database, const std::string& domain) {
    if (domain.starts_with('@'))
        return database.ownersOf(domain);
    requireDeletableDomain(domain);
    return contactsBySuffix(database, domain);
}

}  // namespace pelk
