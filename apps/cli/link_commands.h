#pragma once
// The commands that search for links between contacts and between domains.

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "db/database.h"

namespace pelk {

struct LinksRequest {
    int source = 0;
    int target = 0;
    /// The number of chains; 1 if not given.
    std::optional<std::size_t> count;
    /// The contacts that no chain may meet.
    std::vector<int> without;
    bool json = false;

    /// Whether the answer is a list of chains, even if it has only one.
    bool isForSeveral() const { return count || !without.empty(); }
};

/// Prints the best chains between two contacts, best first, one contact per line. As JSON, prints
/// an object, or an array if the request is for several. Throws `Error` when there is none, when
/// both contacts are the same, or when one of them is to be avoided.
void printLinks(std::ostream& out, const Database& database, const LinksRequest& request);

struct DomainLinksRequest {
    std::string source;
    std::string target;
    /// Print only the cheapest chains.
    bool best = false;
    bool json = false;
};

/// Prints the best chain between each two contacts of two domains, one per line. Shows its progress
/// on a terminal; Ctrl-C prints what has been found so far. Throws `Error` when there is none, or
/// when it refuses the domains.
void printDomainLinks(std::ostream& out, const Database& database,
                      const DomainLinksRequest& request);

}  // namespace pelk
