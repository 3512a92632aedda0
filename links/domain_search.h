#pragma once
// Finds the best chains from all contacts in one mail domain to all contacts in another.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "links/link_search.h"

namespace pelk {

/// Receives the progress of a domain search, on the thread of the search. A call may process the
/// user's input, which may edit the database: later pairs are searched in the edited document. An
/// exception from a call ends the search.
class DomainSearchProgress {
 public:
    virtual ~DomainSearchProgress() = default;
    /// Called once, with the number of pairs to search, which may be 0.
    virtual void pairsCounted(std::size_t count) = 0;
    /// Called before pair `index`, counted from 1.
    virtual void pairStarted(std::size_t index) = 0;
    /// Called after each chain found. Returns whether the user has asked to stop. A pair without a
    /// chain does not lead to a call, so a stopped search still returns at least one chain if any
    /// exists.
    virtual bool stopsAfterChain() = 0;
};

struct DomainLinks {
    std::string source;
    std::string target;
    /// Sorted by source contact, then by target contact, each in the order of their addresses in
    /// the document.
    std::vector<LinkChain> chains;
};

/// Returns a message for the user when the two domains cannot be searched; nothing when they can.
/// A domain may also be an address. Any text that ends with another one counts as its subdomain.
std::optional<std::string> domainRefusal(const std::string& source, const std::string& target);

/// The message for the user when no chain has been found.
std::string noDomainLinksMessage(const std::string& source, const std::string& target);

/// Returns the chains between the contacts of both domains (see `contactsBySuffix`) that were found
/// before a stop. A contact in both domains is linked to itself at cost 0. Throws `Error` as
/// `LinkSearch::find` does.
DomainLinks findDomainLinks(const Database& database, const std::string& source,
                            const std::string& target, DomainSearchProgress& progress);

}  // namespace pelk
