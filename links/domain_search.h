#pragma once
// The best chains from everybody in one mail domain to everybody in another.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "links/link_search.h"

namespace pelk {

/// Watches a search of domains. Between two pairs it may let the user act, on the database as well:
/// the pairs that follow are searched in the document as it stands then. What it throws ends the
/// search.
class DomainSearchProgress {
 public:
    virtual ~DomainSearchProgress() = default;
    /// Once, with the number of pairs to come, which may be 0.
    virtual void pairsCounted(std::size_t count) = 0;
    /// Before pair `index`, counted from 1.
    virtual void pairStarted(std::size_t index) = 0;
    /// After each chain that was found. Returns whether the user asked to stop. Nobody asks after a
    /// pair without a chain: a stop takes effect with the next chain, so it never comes to nothing
    /// while there is one.
    virtual bool stopsAfterChain() = 0;
};

struct DomainLinks {
    std::string source;
    std::string target;
    /// By source contact, then by target contact, each in the order of their addresses in the
    /// document.
    std::vector<LinkChain> chains;
};

/// Why there is no search between the two, in the words for the user; nothing when there is one.
/// A domain is an address, too, and any text that ends with another counts as its subdomain.
std::optional<std::string> domainRefusal(const std::string& source, const std::string& target);

/// What the user is told when there is no chain.
std::string noDomainLinksMessage(const std::string& source, const std::string& target);

/// The chains between the contacts of both domains (see `contactsBySuffix`), up to a stop. A
/// contact of both is linked to itself, at no cost. Throws `Error` as `LinkSearch::find` does.
DomainLinks findDomainLinks(const Database& database, const std::string& source,
                            const std::string& target, DomainSearchProgress& progress);

}  // namespace pelk
