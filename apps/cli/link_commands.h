#pragma once
// The commands that search for links between contacts and between domains.

#include <iosfwd>
#include <string>

#include "db/database.h"

namespace pelk {

/// Prints the best chain between two contacts, one contact per line. Throws `Error` when there is
/// none, or when both contacts are the same.
void printLinks(std::ostream& out, const Database& database, int source, int target, bool json);

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
